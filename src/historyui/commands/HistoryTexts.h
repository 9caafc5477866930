#pragma once

#include <QCoreApplication>

/// `HistoryTexts::tr`: what the commands say to people, in the program's language. What other programs read (JSON, CSV,
/// JUnit, names of options and files) is in no language.
struct HistoryTexts
{
    Q_DECLARE_TR_FUNCTIONS(HistoryTexts)
};
