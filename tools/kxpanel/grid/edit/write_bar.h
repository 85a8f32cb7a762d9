#ifndef KX_KXPANEL_GRID_EDIT_WRITE_BAR_H
#define KX_KXPANEL_GRID_EDIT_WRITE_BAR_H

#include "kxpanel/machine/machine_events.h"
#include "panel/files/tag_assignment.h"

#include <QtWidgets/QFrame>

class QLabel;
class QLineEdit;
class QPushButton;

namespace kxpanel
{

class ValueWriter;

/// Asks, in the page and not above it, before several addresses are written: says how many, which
/// and of which stations, and checks the value for each.
class WriteBar : public QFrame
{
    Q_OBJECT

public:
    explicit WriteBar(ValueWriter* writer, QWidget* parent = nullptr);

    /// Shows the bar for these values, those that can be written.
    void ask(const QList<WatchedValue>& values);
    /// Shows the bar for these values, each with the text of its own.
    /// @return false and why one of them cannot be written in `*fault`; nothing is shown then
    bool askEach(const QList<QPair<WatchedValue, QString>>& values, QString* fault);
    /// Writes nothing more and hides.
    void finish();
    QLineEdit* edit() const { return m_edit; }

signals:
    void closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void check();
    void write();
    bool parseAll(QString* fault);
    void open(const QString& question, bool isTyped);

    ValueWriter* m_writer;
    QList<WatchedValue> m_values;
    QList<QPair<int, kx::TagAssignment>> m_writes; ///< what is asked about, once all is right
    QLabel* m_question;
    QLineEdit* m_edit;
    QLabel* m_fault;
    QPushButton* m_write;
};

} // namespace kxpanel

#endif
