#include "kxpanel/recipes/transfer_texts.h"

#include <QtCore/QCoreApplication>

namespace kxpanel
{

namespace
{

class TransferTexts
{
    Q_DECLARE_TR_FUNCTIONS(kxpanel::TransferTexts)
};

} // namespace

QString failureWords(const RecipeOutcome& outcome)
{
    const bool isUpload = outcome.direction == kx::RecipeDirection::Upload;
    if (outcome.blocks == 0) // it was not begun
        return (isUpload ? TransferTexts::tr("Nothing was read: %1")
                         : TransferTexts::tr("Nothing was sent: %1"))
            .arg(outcome.fault);
    const QString share = TransferTexts::tr("%1 of %n request(s)", nullptr, outcome.blocks)
                              .arg(outcome.blocksDone.size());
    QString text = (isUpload ? TransferTexts::tr("Reading stopped after %1: %2")
                             : TransferTexts::tr("Download stopped after %1: %2"))
                       .arg(share, outcome.fault);
    if (isUpload)
        return text;
    if (!outcome.blocksDone.isEmpty())
        text += TransferTexts::tr("; sent: %1").arg(outcome.blocksDone.join(QLatin1String(", ")));
    if (!outcome.blockMaybeDone.isEmpty())
        text += TransferTexts::tr("; perhaps stored: %1").arg(outcome.blockMaybeDone);
    return text;
}

QString comparisonWords(const RecipeModel& model)
{
    const int rows = model.rowCount();
    if (rows == 0)
        return QString();
    QStringList parts = {TransferTexts::tr("%n value(s)", nullptr, rows)};
    if (!model.isRead())
        parts << TransferTexts::tr("not read from the controller");
    if (model.count(RecipeState::Differs) > 0)
        parts << TransferTexts::tr("%n differ(s)", nullptr, model.count(RecipeState::Differs));
    if (model.count(RecipeState::NoValue) > 0)
        parts << TransferTexts::tr("%n not in the file", nullptr,
                                   model.count(RecipeState::NoValue));
    if (model.count(RecipeState::Same) > 0)
        parts << TransferTexts::tr("%n the same", nullptr, model.count(RecipeState::Same));
    return parts.join(QStringLiteral(", "));
}

} // namespace kxpanel
