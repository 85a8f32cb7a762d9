#ifndef KX_KXPANEL_FRAMES_FOLLOW_END_H
#define KX_KXPANEL_FRAMES_FOLLOW_END_H

#include <QtCore/QObject>

class QTableView;

namespace kxpanel
{

/// Keeps a table that grows at its end, and is cut at its beginning, at its last row while the
/// person looks at it; else what is seen stays where it is.
class FollowEnd : public QObject
{
    Q_OBJECT

public:
    /// @param view scrolls by rows and has its model; owns this
    explicit FollowEnd(QTableView* view);

private:
    void onScrolled(int value);
    /// More rows, or less room for them.
    void onRangeChanged();
    void onInserted();
    void onRemoved(const QModelIndex& parent, int first, int last);

    QTableView* m_view;
    bool m_isAtEnd = true;
};

} // namespace kxpanel

#endif
