#ifndef KX_PANEL_JOBS_RECIPE_JOB_H
#define KX_PANEL_JOBS_RECIPE_JOB_H

#include "addresses/export.h"
#include "panel/jobs/job.h"
#include "panel/recipe/recipe_cells.h"
#include "panel/recipe/recipe_layout.h"

#include <map>

namespace kx
{

/// Takes a recipe to or from the controllers. A block that fails ends it. Progress counts blocks.
/// Of several recipe jobs on one session, each begins when the one before has ended.
class KXRUNTIME_EXPORT RecipeJob : public Job
{
    Q_OBJECT

public:
    RecipeJob(Session* session, const RecipeLayout& layout, RecipeDirection direction,
              QObject* parent = nullptr);

    int blocks() const { return m_layout.blocks(); }
    /// Blocks that the stations answered, in order: "D100:32@1".
    const QStringList& blocksDone() const { return m_done; }
    /// The block that a station may have stored although nobody knows, see
    /// RecipeEnd::unsettled. Empty when there is none.
    const QString& blockMaybeDone() const { return m_maybeDone; }
    /// Whether all blocks were transferred.
    bool isComplete() const { return m_isComplete; }
    /// The uploaded value of each row that the layout was made of, as RecipeRow::value; none unless
    /// an upload is complete.
    QList<QList<qint64>> values(const QList<RecipeRow>& rows) const;

signals:
    /// As in blocksDone().
    void blockDone(const QString& block);

private:
    void begin() override;
    void giveUp(const Failure&) override {}
    void onBlock(int handle, const AddressRange& block);
    void takeCoils(const AddressRange& block);
    void onEnd(int handle, const RecipeEnd& recipeEnd);

    RecipeLayout m_layout;
    RecipeDirection m_direction;
    QStringList m_done;
    QString m_maybeDone;
    std::vector<quint16> m_words;            ///< uploaded
    std::map<RecipeCellKey, qint64> m_coils; ///< uploaded
    bool m_isComplete = false;
};

} // namespace kx

#endif
