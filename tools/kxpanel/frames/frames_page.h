#ifndef KX_KXPANEL_FRAMES_FRAMES_PAGE_H
#define KX_KXPANEL_FRAMES_FRAMES_PAGE_H

#include "kxpanel/window/page.h"

class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QTableView;
class QToolBar;

namespace kxpanel
{

class FramesModel;

/// Requests and replies as they come, and all of the one that is selected.
class FramesPage : public Page
{
    Q_OBJECT

public:
    explicit FramesPage(const PageContext& context, QWidget* parent = nullptr);

    QString key() const override { return QStringLiteral("frames"); }
    QJsonObject layout() const override;
    void setLayout(const QJsonObject& layout) override;

private:
    void makeFilters(QToolBar* bar);
    void makeActions(QToolBar* bar);
    QTableView* makeTable();
    void onFilterChosen();
    void addStation(int station);
    void showDetails();
    void showCounts();
    void askWhereToSave();
    void save(const QString& path);

    FramesModel* m_model;
    QComboBox* m_station = nullptr;
    QComboBox* m_kind = nullptr;
    QComboBox* m_outcome = nullptr;
    QLineEdit* m_text = nullptr;
    QTableView* m_table = nullptr;
    QPlainTextEdit* m_details = nullptr;
    QLabel* m_counts = nullptr;
};

} // namespace kxpanel

#endif
