#pragma once

#include "emulator/scenario/Scenario.h"

#include <QByteArray>

namespace emulator {

/// The TF card. Serves the data of `getTFCardStatus` and `getTFCardUsedStatus`.
class TfCardDevice
{
public:
    explicit TfCardDevice(const TfCard &card) : m_card(card) {}

    QByteArray status() const; ///< 8 bytes
    QByteArray usage() const;  ///< 32 bytes

private:
    TfCard m_card;
};

} // namespace emulator
