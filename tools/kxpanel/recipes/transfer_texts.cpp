#include "kxpanel/recipes/transfer_texts.h"

#include <QtCore/QCoreApplication>

namespace kxpanel
{

namespace
{

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(kxpanel::Texts)
};

} // namespace

QString failureWords(const RecipeOutcome& outcome)
{
    const bool isUpload = outcome.direction == kx::RecipeDirection::Upload;
    if (outcome.blocks == 0) // it was not begun
        return (isUpload ? Texts::tr("Nothing was read: %1") : Texts::tr("Nothing was sent: %1"))
            .arg(outcome.fault);
    const QString share =
        Texts::tr("%1 of %n request(s)", nullptr, outcome.blocks).arg(outcome.blocksDone.size());
    QString text = (isUpload ? Texts::tr("Reading stopped after %1: %2")
                             : Texts::tr("Download stopped after %1: %2"))
                       .arg(share, outcome.fault);
    if (isUpload)
        return text;
    if (!outcome.blocksDone.isEmpty())
        text += Texts::tr("; sent: %1").arg(outcome.blocksDone.join(QLatin1String(", ")));
    if (!outcome.blockMaybeDone.isEmpty())
        text += Texts::tr("; perhaps stored: %1").arg(outcome.blockMaybeDone);
    return text;
}

QString comparisonWords(const RecipeModel& model)
{
    const int rows = model.rowCount();
    if (rows == 0)
        return QString();
    QStringList parts = {Texts::tr("%n value(s)", nullptr, rows)};
    if (!model.isRead())
        parts << Texts::tr("not read from the controller");
    if (model.count(RecipeState::Differs) > 0)
        parts << Texts::tr("%n differ(s)", nullptr, model.count(RecipeState::Differs));
    if (model.count(RecipeState::NoValue) > 0)
        parts << Texts::tr("%n not in the file", nullptr, model.count(RecipeState::NoValue));
    if (model.count(RecipeState::Same) > 0)
        parts << Texts::tr("%n the same", nullptr, model.count(RecipeState::Same));
    return parts.join(QStringLiteral(", "));
}

} // namespace kxpanel
