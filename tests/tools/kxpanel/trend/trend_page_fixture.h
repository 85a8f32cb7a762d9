/// A trend's page as a person sees it, without a line.
#ifndef KX_TESTS_TOOLS_KXPANEL_TREND_TREND_PAGE_FIXTURE_H
#define KX_TESTS_TOOLS_KXPANEL_TREND_TREND_PAGE_FIXTURE_H

#include "kxpanel/machine/machine.h"
#include "kxpanel/tags/tag_list.h"
#include "kxpanel/trend/plot/trend_plot.h"
#include "kxpanel/trend/trend_page.h"
#include "tools/kxpanel/frames.h"
#include "tools/kxpanel/trend/model/trend_tags.h"
#include "tools/kxpanel/value_drags.h"

#include <QtCore/QDateTime>
#include <QtGui/QImage>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>

namespace kxpanel
{

inline const QColor BLUE(0x00, 0x72, 0xB2); // the first curve, on light ground

/// A page without a line: the machine's signals are emitted by hand.
struct Window {
    Machine machine;
    TagList tags;
    QList<int> numbers;
    TrendPage page{{&machine, &tags}};
    TrendPlot* plot = page.findChild<TrendPlot*>();
    TrendLegend* legend = page.findChild<TrendLegend*>();
    QSignalSpy said{&page, &TrendPage::said};
    qint64 firstRead = QDateTime::currentMSecsSinceEpoch() - 50000;

    Window()
    {
        numbers =
            tags.insert(0, {tagOf("Pressure", "D100@1/s16*0.1,unit=bar"),
                            tagOf("Level", "D101@1/u16*0.5,unit=mm"), tagOf("Pump", "Y10@1")});
        QPalette light(QColor(0xEE, 0xEE, 0xEE));
        light.setColor(QPalette::Base, Qt::white);
        page.setPalette(light);
        page.resize(900, 600);
        page.show();
        page.activateWindow();
        plot->canvas()->setFocus();
        if (!QTest::qWaitForWindowActive(&page))
            qFatal("no window has become active");
    }

    void drop(const QList<int>& dropped)
    {
        ValueDrag drag(&page, valuesData(dropped));
        drag.moveTo(plot->canvas());
        drag.drop();
    }

    /// 50 seconds, one of which ended a moment ago.
    void read()
    {
        QVector<Reading> readings;
        for (int index = 0; index <= 500; ++index) {
            const qint64 at = firstRead + 100 * index;
            readings << readingOf(numbers.at(0), index == 200 ? 900 : 100 + index % 50, at)
                     << readingOf(numbers.at(1), 2000 + index % 300, at)
                     << readingOf(numbers.at(2), index / 90 % 2, at);
        }
        emit machine.valuesRead(readings);
    }

    void waitUntilDrawn() { passFrames(2); }

    QAction* action(const char* name) const { return page.findChild<QAction*>(name); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(plot->canvas(), key, modifiers);
    }
    void drag(Qt::MouseButton button, const QPoint& begin, const QPoint& end,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget* canvas = plot->canvas();
        QTest::mousePress(canvas, button, modifiers, begin);
        QMouseEvent move(QEvent::MouseMove, end, canvas->mapToGlobal(end), Qt::NoButton, button,
                         modifiers);
        QApplication::sendEvent(canvas, &move);
        QTest::mouseRelease(canvas, button, modifiers, end);
    }
    QString state() const
    {
        for (const QLabel* label : page.findChildren<QLabel*>()) {
            if (label->objectName() == "cursors")
                return label->text();
        }
        return QString();
    }
    QString text(int row, int column) const { return legend->index(row, column).data().toString(); }
    int pixelsOf(const QColor& colour) const
    {
        const QImage image = plot->canvas()->grab().toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y) == colour ? 1 : 0;
        }
        return count;
    }
    qint64 from() const { return plot->timeAt(0); }
    qint64 to() const { return plot->timeAt(plot->canvas()->width()); }
};

} // namespace kxpanel

#endif
