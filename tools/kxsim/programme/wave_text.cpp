#include "kxsim/programme/wave.h"
#include "kxsim/timing/duration_text.h"

#include "registers/register_types.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

#include <algorithm>

namespace kxsim
{

namespace
{

const std::chrono::microseconds MILLISECOND(1000);

// In the order of WaveShape.
QStringList shapeNames()
{
    return {QStringLiteral("ramp"), QStringLiteral("triangle"), QStringLiteral("sine"),
            QStringLiteral("square")};
}

bool refuseWave(QString* error, const QString& fault)
{
    *error = fault;
    return false;
}

bool takeShape(const QString& name, Wave* wave, QString* fault)
{
    const bool isBit = wave->range.type->registerClass == BIT_CLASS;
    const int shape = static_cast<int>(shapeNames().indexOf(name));
    if (shape < 0 && !name.isEmpty())
        return refuseWave(fault, QStringLiteral("'%1' is none of %2")
                                     .arg(name, shapeNames().join(QStringLiteral(", "))));
    wave->shape = isBit ? WaveShape::Square : WaveShape::Ramp;
    if (shape >= 0)
        wave->shape = static_cast<WaveShape>(shape);
    return !isBit || wave->shape == WaveShape::Square
           || refuseWave(fault, QStringLiteral("a bit can only be a square"));
}

// As the value of an assignment, so that it fits the type.
bool takeValue(const QString& text, const Wave& wave, qint64* value, QString* fault)
{
    kx::Assignment assignment;
    const QString address = kx::addressText(wave.range.type, wave.range.address);
    if (!kx::parseAssignment(address + QLatin1Char('=') + text, &assignment, fault))
        return false;
    *value = assignment.values.first();
    return true;
}

// Negative values take the place of the highest ones.
bool isReadOneWay(const Wave& wave, QString* fault)
{
    const qint64 lowest = kx::lowestValue(wave.range.type);
    const bool isSigned = std::min(wave.first, wave.last) < 0;
    return !isSigned || std::max(wave.first, wave.last) < -lowest
           || refuseWave(fault,
                         QStringLiteral("with negative values the highest is %1").arg(-lowest - 1));
}

bool takePeriod(const QString& text, Wave* wave, QString* fault)
{
    std::chrono::microseconds period{0};
    if (!parseDuration(text, &period) || period < MILLISECOND
        || period % MILLISECOND != std::chrono::microseconds(0))
        return refuseWave(fault, QStringLiteral("'%1' is no period; write 1ms to 24h in whole "
                                                "milliseconds, such as 20s")
                                     .arg(text));
    wave->period = std::chrono::duration_cast<std::chrono::milliseconds>(period);
    return true;
}

bool takeParts(const QString& text, Wave* wave, QString* fault)
{
    static const QRegularExpression form(
        QStringLiteral("\\A([^=]+)=(?:([^:.,/]*):)?([^:,/]+?)\\.\\.([^:,/]+)/([^/]+)\\z"));
    const QRegularExpressionMatch parts = form.match(text);
    if (!parts.hasMatch())
        return refuseWave(fault,
                          QStringLiteral("write ADDRESS=FIRST..LAST/PERIOD, such as "
                                         "D10=0..4095/20s, D11=sine:0..4095/20s or M0=0..1/2s"));
    return kx::parseAddress(parts.captured(1), &wave->range, fault)
           && takeShape(parts.captured(2), wave, fault)
           && takeValue(parts.captured(3), *wave, &wave->first, fault)
           && takeValue(parts.captured(4), *wave, &wave->last, fault) && isReadOneWay(*wave, fault)
           && takePeriod(parts.captured(5), wave, fault);
}

} // namespace

bool parseWave(const QString& text, Wave* wave, QString* error)
{
    Wave parsed;
    QString fault;
    if (!takeParts(text, &parsed, &fault))
        return refuseWave(error, QStringLiteral("--wave %1: %2").arg(text, fault));
    *wave = parsed;
    return true;
}

} // namespace kxsim
