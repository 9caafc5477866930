#pragma once

#include <QCoreApplication>

/// `ReportTexts::tr`: what stands on the report and its pictures, in the program's language.
struct ReportTexts
{
    Q_DECLARE_TR_FUNCTIONS(ReportTexts)
};
