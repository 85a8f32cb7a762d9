#ifndef KX_KXPANEL_LINE_LIMIT_LIMIT_PANEL_H
#define KX_KXPANEL_LINE_LIMIT_LIMIT_PANEL_H

#include <QtWidgets/QWidget>

namespace kx
{
struct CycleCost;
}

class QLabel;
class QPushButton;
class QSlider;
class QSpinBox;

namespace kxpanel
{

class LimitCosts;
class LimitCurve;

/// Chooses how long requests may be: what a cycle would take under each limit beside what it takes.
class LimitPanel : public QWidget
{
    Q_OBJECT

public:
    /// @param costs stays the caller's and outlives the panel
    explicit LimitPanel(const LimitCosts* costs, QWidget* parent = nullptr);

    int chosen() const;
    void setChosen(int maxWords);
    /// @param time of a cycle in microseconds; 0: not known
    void setMeasured(qint64 time);
    /// Chooses it, too, when it is another.
    /// @param longest request that is allowed on the line now, in registers; 0: no line is open
    /// @param isAutomatic within that, requests are as long as takes the least time
    void setInForce(int longest, bool isAutomatic);
    /// @param stations whose requests are not among those predicted, rising
    void setSilent(const QList<int>& stations);
    /// @param wait microseconds to a reply of stations that have not answered yet; 0: all have
    void setAssumed(qint64 wait);

signals:
    /// The limit under the slider is another.
    void chosenChanged(int maxWords);
    /// The person wants requests of so many registers and bits at most; 0: of the least time.
    void applied(int maxWords, int maxBits);

private:
    QWidget* makeChoice();
    QWidget* makeButtons();
    void onChosen(int maxWords);
    void showCosts();
    static QString predictedWords(const kx::CycleCost& cost);
    void apply(int maxWords);

    const LimitCosts* m_costs;
    LimitCurve* m_curve;
    QSlider* m_slider = nullptr;
    QSpinBox* m_number = nullptr;
    QString m_leftOut; ///< of what is predicted, in words
    QString m_assumed; ///< the same
    QLabel* m_predicted;
    QLabel* m_measured;
    QLabel* m_inForce;
    QPushButton* m_best = nullptr;
    int m_longest; ///< that was in force last
};

} // namespace kxpanel

#endif
