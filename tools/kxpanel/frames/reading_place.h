#ifndef KX_KXPANEL_FRAMES_READING_PLACE_H
#define KX_KXPANEL_FRAMES_READING_PLACE_H

#include <QtCore/QtGlobal>

class QTableView;

namespace kxpanel
{

class FramesModel;

/// Where in a table of exchanges a person reads, for when the filter lets others through: the
/// exchange that is selected stays where it is on the screen, else the topmost one; the end is
/// followed only by who was there.
class ReadingPlace
{
public:
    /// @param view scrolls by rows; both outlive this
    ReadingPlace(QTableView* view, const FramesModel* model) : m_view(view), m_model(model) {}

    /// To be called before other rows are shown.
    /// @param selected the place of the exchange whose details are shown; -1: none
    void mark(qint64 selected);
    /// To be called when they are shown.
    void goBack();

private:
    static constexpr qint64 END = -1;

    bool isInView(int row) const;

    QTableView* m_view;
    const FramesModel* m_model;
    qint64 m_place = END;  ///< FramesModel::placeOf() of what is read
    int m_rowsFromTop = 0; ///< at which it stands
};

} // namespace kxpanel

#endif
