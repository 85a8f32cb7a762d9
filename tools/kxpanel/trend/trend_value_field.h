#ifndef KX_KXPANEL_TREND_TREND_VALUE_FIELD_H
#define KX_KXPANEL_TREND_TREND_VALUE_FIELD_H

#include <QtWidgets/QLineEdit>

namespace kxpanel
{

class TagList;

/// Names values of the watch list by keyboard, completed while typing; what dragging does with the
/// mouse.
class TrendValueField : public QLineEdit
{
    Q_OBJECT

public:
    /// @param tags outlives it
    explicit TrendValueField(const TagList* tags, QWidget* parent = nullptr);

signals:
    void valuesNamed(const QList<int>& numbers);
    /// One line.
    void refused(const QString& text);

protected:
    void focusInEvent(QFocusEvent* event) override;

private:
    void take();

    const TagList* m_tags;
};

} // namespace kxpanel

#endif
