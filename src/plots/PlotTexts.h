#pragma once

#include <QCoreApplication>

/// `Plots::tr`: what stands on the plots and in the tables that tell the same, in the program's language.
struct Plots
{
    Q_DECLARE_TR_FUNCTIONS(Plots)
};
