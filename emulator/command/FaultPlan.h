#pragma once

#include "emulator/scenario/Scenario.h"

#include <array>
#include <optional>
#include <QMap>
#include <QVector>
#include <random>

namespace emulator {

/// Plays the scenario's faults: which one, if any, the reply to the next request suffers.
///
/// A reply that no entry of a list spoils may still get lost on the radio.
///
/// EEPROM reads at an address that has entries of its own play those, and do not count for the entries without one.
class FaultPlan
{
public:
    explicit FaultPlan(const Scenario &scenario);

    /// `address`: of an EEPROM read.
    std::optional<Fault> next(Command command, std::optional<int> address);

private:
    std::optional<Fault> nextOfLists(Command command, std::optional<int> address);

    /// One list of entries and how far it has been played.
    class List
    {
    public:
        void append(const Fault &fault) { m_faults.append(fault); }
        std::optional<Fault> next();

    private:
        QVector<Fault> m_faults;
        int m_current = 0;
        int m_seen = 0; ///< requests that the current entry has seen
    };

    std::array<List, commandTable.size()> m_lists;
    QMap<int, List> m_listsByAddress;
    int m_lossPercent;
    std::mt19937 m_random; ///< its numbers are the same everywhere, unlike those of the library's distributions
};

} // namespace emulator
