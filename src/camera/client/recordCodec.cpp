#include "camera/client/recordCodec.h"

#include <QtEndian>

namespace {
/// Takes packed little-endian values one after the other.
class Reader
{
public:
    explicit Reader(const std::uint8_t *data) : m_next(data) {}

    void skip(int bytes) { m_next += bytes; }

    template <class... Values>
    void take(Values &...values)
    {
        (takeOne(values), ...);
    }

private:
    template <class Value>
    void takeOne(Value &value)
    {
        value = qFromLittleEndian<Value>(m_next);
        m_next += sizeof(Value);
    }
    template <class Value, std::size_t Size>
    void takeOne(std::array<Value, Size> &values)
    {
        for (Value &value : values) {
            takeOne(value);
        }
    }

    const std::uint8_t *m_next;
};
} // namespace

void decode(const std::uint8_t *data, CameraStatus *out)
{
    *out = {};
    Reader in(data);
    in.skip(4);
    in.take(out->iCurStatus);
}

void decode(const std::uint8_t *data, TFCardStatus *out)
{
    Reader(data).take(out->state, out->reason);
}

void decode(const std::uint8_t *data, TFCardUsedStatus *out)
{
    Reader(data).take(out->sectorSize, out->total, out->available, out->used);
}

void decode(const std::uint8_t *data, BatteryInfo *out)
{
    Reader in(data);
    in.take(out->subId, out->versionInfo, out->softwareVersion, out->hardwareVersion, out->charge);
    in.take(out->voltage, out->current, out->temperature, out->minutesToEmpty, out->minutesToFull);
    in.take(out->deviceType, out->firmwareInfo, out->hardwareInfo, out->cycleCount, out->fullCapacity);
    in.take(out->manufacturer, out->warningBits, out->charger, out->microphone, out->pogoPin);
}

void decode(const std::uint8_t *data, BatteryStatus *out)
{
    Reader(data).take(out->charge, out->voltage, out->current, out->temperature, out->minutesToEmpty,
                      out->minutesToFull);
}

void decode(const std::uint8_t *data, GimbalDeviceInfo *out)
{
    Reader(data).take(out->bytes, out->words);
}

void decode(const std::uint8_t *data, GimbalState *out)
{
    Reader(data).take(out->words, out->bytes);
}

void decode(const std::uint8_t *data, GimbalESCDevicesCheck *out)
{
    Reader(data).take(out->flags);
}
