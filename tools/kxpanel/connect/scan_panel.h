#ifndef KX_KXPANEL_CONNECT_SCAN_PANEL_H
#define KX_KXPANEL_CONNECT_SCAN_PANEL_H

#include "kxpanel/machine/machine.h"
#include "panel/jobs/scan_reply.h"

#include <QtWidgets/QWidget>

class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QSpinBox;

namespace kxpanel
{

class LineFields;

/// Asks the stations of the line whether they are there, each once and not for long: for that the
/// line is opened with settings of its own, and afterwards as it was before.
///
///     Resting --start--> Opening --the line is open--> Asking --the scan ends--> Resting
///                           |                                                      ^
///                           +--cancelled, the line cannot be opened----------------+
class ScanPanel : public QWidget
{
    Q_OBJECT

public:
    /// @param machine stays the caller's, as do the fields, which name the line
    ScanPanel(Machine* machine, LineFields* fields, QWidget* parent = nullptr);

    /// Shows it; hides it and ends the scan.
    void setOpen(bool isOpen);

signals:
    /// One of the line's fields; empty: none is.
    void fieldIsWrong(const QString& fault);
    /// A person has chosen one of those found.
    void stationChosen(int station);

private:
    enum class Step { Resting, Opening, Asking };

    void makeWidgets();
    void layOut();
    void toggle();
    void start();
    void stop();
    void takeStatus(const LineStatus& status);
    void beginJob();
    void addStation(const kx::ScanReply& reply);
    void showProgress(int done, int total);
    void onEnded(const kx::Failure& failure);
    void rest(const QString& result);
    void chooseStation();

    Machine* m_machine;
    LineFields* m_fields;
    Step m_step = Step::Resting;
    bool m_wasTold = false; ///< that the scan's line is being opened
    LineState m_lineState = LineState::Closed;
    bool m_wasOpen = false; ///< the line, before the scan
    int m_ticket = 0;
    QList<int> m_stations;
    QLineEdit* m_range;
    QSpinBox* m_timeout;
    QPushButton* m_start;
    QProgressBar* m_progress;
    QListWidget* m_found;
    QLabel* m_result;
};

} // namespace kxpanel

#endif
