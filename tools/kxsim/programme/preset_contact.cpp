#include "kxsim/programme/preset_contact.h"

#include "registers/register_types.h"

#include <QtCore/QRegularExpression>

namespace kxsim
{

namespace
{

const int FIRST_LONG_COUNTER = 200;

bool refuseContact(QString* fault, const QString& text)
{
    *fault = text;
    return false;
}

bool takeContact(const QString& text, const char* type, kx::AddressRange* contact, QString* fault)
{
    return kx::parseAddress(text, contact, fault)
           && ((contact->type == findRegisterType(QString::fromLatin1(type))
                && contact->values == 1)
               || refuseContact(
                   fault,
                   QStringLiteral("the contact must be one %1").arg(QString::fromLatin1(type))));
}

bool takePreset(const QString& text, PresetContact* timer, QString* fault)
{
    // The highest signed value: people see no higher one as such.
    const qint64 highest = -kx::lowestValue(timer->valueType()) - 1;
    bool isNumber = false;
    const qint64 preset = text.toLongLong(&isNumber);
    if (!isNumber || preset < 1 || preset > highest)
        return refuseContact(fault, QStringLiteral("the preset must be 1 to %1").arg(highest));
    timer->preset = static_cast<quint32>(preset);
    return true;
}

bool takeInput(const QString& text, kx::AddressRange* input, QString* fault)
{
    if (text.isEmpty())
        return true;
    QString reason;
    if (!kx::parseAddress(text, input, &reason))
        return refuseContact(fault, kx::faultyText(text, reason));
    return (input->type->registerClass == BIT_CLASS && input->values == 1 && input->station < 0)
           || refuseContact(
               fault,
               QStringLiteral("%1: the input must be one bit, of the same station").arg(text));
}

bool parse(const QString& text, const char* type, const QRegularExpression& form,
           PresetContact* parsed, QString* fault)
{
    const QRegularExpressionMatch parts = form.match(text);
    if (!parts.hasMatch())
        return refuseContact(fault, QString());
    return takeContact(parts.captured(1), type, &parsed->contact, fault)
           && takePreset(parts.captured(2), parsed, fault)
           && takeInput(parts.captured(3), &parsed->input, fault);
}

} // namespace

const RegisterType* PresetContact::valueType() const
{
    if (contact.type == findRegisterType(QStringLiteral("T")))
        return findRegisterType(QStringLiteral("TV"));
    return findRegisterType(contact.address < FIRST_LONG_COUNTER ? QStringLiteral("CV")
                                                                 : QStringLiteral("32CV"));
}

bool parseTimer(const QString& text, PresetContact* timer, QString* error)
{
    static const QRegularExpression form(QStringLiteral("\\A([^=]+)=([0-9]+)(?:/(.+))?\\z"));
    PresetContact parsed;
    QString fault;
    if (parse(text, "T", form, &parsed, &fault)) {
        *timer = parsed;
        return true;
    }
    if (fault.isEmpty())
        fault = QStringLiteral("write CONTACT=PRESET[/BIT], such as T5=50, or T5=50/M5");
    return refuseContact(error, QStringLiteral("--timer %1: %2").arg(text, fault));
}

bool parseCounter(const QString& text, PresetContact* counter, QString* error)
{
    static const QRegularExpression form(QStringLiteral("\\A([^=]+)=([0-9]+)/(.+)\\z"));
    PresetContact parsed;
    QString fault;
    if (parse(text, "C", form, &parsed, &fault)) {
        *counter = parsed;
        return true;
    }
    if (fault.isEmpty())
        fault = QStringLiteral("write CONTACT=PRESET/BIT, such as C3=10/X3");
    return refuseContact(error, QStringLiteral("--counter %1: %2").arg(text, fault));
}

} // namespace kxsim
