#ifndef KX_KXPANEL_RECIPES_RECIPE_RUN_H
#define KX_KXPANEL_RECIPES_RECIPE_RUN_H

#include "exchange/failure.h"
#include "panel/recipe/recipe_file.h"
#include "panel/session/session_events.h"

#include <QtCore/QObject>

#include <memory>

namespace kxpanel
{

class Machine;

/// How a transfer ended.
struct RecipeOutcome {
    kx::RecipeDirection direction = kx::RecipeDirection::Upload;
    QString fault;               ///< one line; empty: all was transferred
    bool wasAborted = false;     ///< by abort()
    QList<QList<qint64>> values; ///< of a complete upload, one per row
    int blocks = 0;              ///< requests that the transfer takes
    QStringList blocksDone;      ///< that were answered, "D100:32@1"
    QString blockMaybeDone;      ///< that may have been stored; empty: none
};

/// Takes recipes to and from the controllers, one at a time, in the machine's thread.
///
///     idle --start()--> running --done, failed, abort(), line closed--> idle
///
/// ended() comes once for each start(), never before that returns.
class RecipeRun : public QObject
{
    Q_OBJECT

public:
    /// @param machine must outlive this
    explicit RecipeRun(Machine* machine, QObject* parent = nullptr);

    /// Nothing happens while one is running.
    void start(kx::RecipeDirection direction, const QList<kx::RecipeRow>& rows);
    void abort();
    bool isRunning() const { return m_ticket != 0; }

signals:
    /// @param done blocks that were answered, of `total`
    void progress(int done, int total);
    void ended(const kxpanel::RecipeOutcome& outcome);

private:
    void onJobEnded(int ticket, const kx::Failure& failure);

    Machine* m_machine;
    int m_ticket = 0; ///< 0: none is running
    /// Filled in the machine's thread before it tells the job's end, and read here afterwards.
    std::shared_ptr<RecipeOutcome> m_outcome;
};

} // namespace kxpanel

#endif
