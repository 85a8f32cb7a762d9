#ifndef KX_KXPANEL_FRAMES_FILTER_BAR_H
#define KX_KXPANEL_FRAMES_FILTER_BAR_H

#include "kxpanel/frames/frame_filter.h"

#include <QtWidgets/QToolBar>

class QComboBox;
class QLineEdit;

namespace kxpanel
{

/// Where a person chooses which exchanges are shown.
class FilterBar : public QToolBar
{
    Q_OBJECT

public:
    explicit FilterBar(QWidget* parent = nullptr);

    FrameFilter filter() const;
    /// Lets it be chosen; each once.
    void addStation(int station);
    /// Gives the keyboard to the text.
    void beginTyping();

signals:
    /// filter() is another.
    void chosen();

private:
    QComboBox* m_station;
    QComboBox* m_kind;
    QComboBox* m_outcome;
    QLineEdit* m_text;
};

} // namespace kxpanel

#endif
