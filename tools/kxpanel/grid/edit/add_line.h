#ifndef KX_KXPANEL_GRID_EDIT_ADD_LINE_H
#define KX_KXPANEL_GRID_EDIT_ADD_LINE_H

#include "panel/files/tags_file.h"

#include <QtWidgets/QWidget>

class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QStringListModel;

namespace kxpanel
{

/// Texts that may be typed next: names of register types, and formats behind a slash.
QStringList addressCompletions(const QString& typed);

/// The line in which addresses are typed. What is wrong is said below it while somebody types.
class AddLine : public QWidget
{
    Q_OBJECT

public:
    explicit AddLine(QWidget* parent = nullptr);

    /// Of addresses that name none.
    int station() const;
    void setStation(int station);
    QLineEdit* edit() const { return m_edit; }

signals:
    /// Enter was pressed, and the text is right.
    void added(const kx::Tag& tag);
    void stationChanged();
    /// What the text means, or why it means nothing; empty: nothing is typed.
    void explained(const QString& text, bool isFault);

private:
    void onEdited(const QString& typed);
    void onEntered();
    bool check(kx::Tag* tag);

    QLineEdit* m_edit;
    QSpinBox* m_station;
    QPushButton* m_add;
    QStringListModel* m_completions;
};

} // namespace kxpanel

#endif
