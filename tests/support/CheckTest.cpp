#include "support/CheckTest.h"

#include "detector/store/KestDetectorFace.h"

#include <variant>

void reportStatus(ScriptedCamera &camera, quint64 status, const QList<int> &examined)
{
    KestDetectorFace *face = KestDetectorFace::Get();
    Settings settings = face->settings();
    settings.cameraStatusMask = ~Q_UINT64_C(0);
    settings.statusBitList.clear();
    for (int position = 0; position < 64; ++position) {
        settings.statusBitList.append(examined.contains(position));
    }
    face->setSettings(settings);
    camera.answer(1, 0x1C1, QByteArray(4, 0) + littleEndian(status, 8) + QByteArray(76, 0));
}

QByteArray littleEndian(quint64 value, int bytes)
{
    QByteArray text;
    for (int i = 0; i < bytes; ++i) {
        text.append(static_cast<char>(value >> (8 * i) & 0xFF));
    }
    return text;
}

QStringList measurementTexts(const CheckItemLog &item)
{
    constexpr int digits = 15;
    QStringList texts;
    for (const Measurement &measurement : item.measurements) {
        const auto *number = std::get_if<double>(&measurement.value);
        const QString value =
            number == nullptr ? std::get<QString>(measurement.value) : QString::number(*number, 'g', digits);
        texts.append(QStringLiteral("%1=%2 %3").arg(measurement.name, value, measurement.unit).trimmed());
    }
    return texts;
}
