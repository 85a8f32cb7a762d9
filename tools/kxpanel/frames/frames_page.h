#ifndef KX_KXPANEL_FRAMES_FRAMES_PAGE_H
#define KX_KXPANEL_FRAMES_FRAMES_PAGE_H

#include "kxpanel/window/page.h"

#include <memory>

class QLabel;
class QPlainTextEdit;
class QTableView;

namespace kxpanel
{

class FillColumn;
class FilterBar;
class FrameSaver;
class FramesModel;
class ReadingPlace;

/// Requests and replies as they come, and all of the one that is selected.
class FramesPage : public Page
{
    Q_OBJECT

public:
    explicit FramesPage(const PageContext& context, QWidget* parent = nullptr);
    ~FramesPage() override;

    QString key() const override { return QStringLiteral("frames"); }
    QByteArray place() const override;
    void setPlace(const QByteArray& place) override;

private:
    void makeActions();
    QTableView* makeTable();
    void onFilterChosen();
    void showDetails(const QModelIndex& current);
    void clearDetails();
    /// What is read stays, also when its row has gone.
    void leaveRows(int first, int last);
    void showCounts();
    void askWhereToSave();
    void save(const QString& path);
    void saySaved(const QString& path, int exchanges, const QString& error);

    FramesModel* m_model;
    FilterBar* m_filters;
    FrameSaver* m_saver;
    QTableView* m_table = nullptr;
    FillColumn* m_replies = nullptr;
    std::unique_ptr<ReadingPlace> m_place;
    QPlainTextEdit* m_details = nullptr;
    QLabel* m_counts = nullptr;
    qint64 m_selected = -1; ///< its place, -1: none
};

} // namespace kxpanel

#endif
