/// A recipe on its way to or from the controllers, pass after pass.
#ifndef KX_PANEL_JOBS_RECIPE_TRANSFER_H
#define KX_PANEL_JOBS_RECIPE_TRANSFER_H

#include "panel/recipe/recipe_layout.h"
#include "panel/session/driver_session.h"

namespace kx
{

enum class RecipeDirection { Download, Upload };

/// Hands each pass to the driver as a recipe of its own and raises the request
/// byte for it; the driver lowers it after the last block or after a failure,
/// which ends the transfer.
class RecipeTransfer : public QObject
{
    Q_OBJECT

public:
    RecipeTransfer(DriverSession* session, const RecipeLayout& layout, RecipeDirection direction);

    void start();
    /// Ends the transfer with both request bytes lowered.
    void abort(const QString& reason);

    int blocks() const { return m_layout.blocks(); }
    /// Blocks that the stations answered, in order: "D100:32@1".
    const QStringList& blocksDone() const { return m_done; }
    /// The block that a station may have stored although nobody knows: its request
    /// went out, and no answer settled it. Empty when there is none.
    const QString& blockMaybeDone() const { return m_maybeDone; }
    bool isComplete() const { return m_isComplete; }
    /// Why the transfer is not complete: "D132:32@1: no reply".
    QString failure() const { return m_failure; }
    /// The uploaded value of each row.
    QList<quint32> values(const QList<RecipeRow>& rows) const;

signals:
    void blockDone(const QString& block);
    void finished();

private:
    void startPass();
    void takeExchange(const ExchangeRecord& record);
    void noteUnsettled(const ExchangeRecord& record);
    void end(const QString& failure);

    DriverSession* m_session;
    RecipeLayout m_layout;
    RecipeDirection m_direction;
    int m_pass = 0;
    QStringList m_done;
    QString m_maybeDone;
    QString m_failure;
    bool m_isComplete = false;
    bool m_isEnded = false;
};

} // namespace kx

#endif
