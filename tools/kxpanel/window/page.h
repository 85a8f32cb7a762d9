#ifndef KX_KXPANEL_WINDOW_PAGE_H
#define KX_KXPANEL_WINDOW_PAGE_H

#include <QtCore/QByteArray>
#include <QtCore/QJsonObject>
#include <QtWidgets/QWidget>

namespace kxpanel
{

class Machine;
class TagList;

/// What the pages of the window share. All outlive them.
struct PageContext {
    Machine* machine = nullptr;
    TagList* tags = nullptr;
};

/// One page of the main window. Its windowTitle() is the tab's text, translated.
class Page : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Name of its part of a project file, such as "trend"; never translated.
    virtual QString key() const = 0;
    /// What a project keeps of it: plots, files. Here what setLayout() got, whose members that a
    /// page does not know go back to the project.
    virtual QJsonObject layout() const { return m_layout; }
    /// Takes what is right and leaves out what is not.
    virtual void setLayout(const QJsonObject& layout) { m_layout = layout; }
    /// How it is arranged on this computer, such as widths of columns: kept with the window's
    /// geometry and in no project.
    virtual QByteArray place() const { return QByteArray(); }
    /// What is not as place() gives it changes nothing.
    virtual void setPlace(const QByteArray&) {}
    /// Of addresses that name none, from now on.
    /// @param station 1 to 247; before the first call 1
    virtual void setStation(int) {}
    /// What gets the keyboard when a person goes to the page; the page itself when it named none.
    QWidget* mainPart() { return m_mainPart ? m_mainPart : this; }

signals:
    /// layout() is another.
    void layoutChanged();
    /// One line for the window's status bar; empty takes it away.
    void said(const QString& text);

protected:
    /// Not as a focus proxy, with which Tab would pass over all that stands before it.
    /// @param part a child
    void setMainPart(QWidget* part) { m_mainPart = part; }

private:
    QWidget* m_mainPart = nullptr;
    QJsonObject m_layout; ///< as the project had it
};

} // namespace kxpanel

#endif
