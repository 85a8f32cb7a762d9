/// The page with four values and without a line: writes end at once, in vain.
#ifndef KX_TESTS_TOOLS_KXPANEL_GRID_WATCH_PAGE_FIXTURE_H
#define KX_TESTS_TOOLS_KXPANEL_GRID_WATCH_PAGE_FIXTURE_H

#include "kxpanel/grid/model/watch_model.h"
#include "kxpanel/grid/watch_page.h"
#include "kxpanel/grid/watch_table.h"
#include "kxpanel/tags/tag_list.h"
#include "tools/kxpanel/machine_fixture.h"
#include "tools/kxpanel/tag_samples.h"

#include <QtTest/QSignalSpy>

#include <QtCore/QDateTime>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

namespace kxpanel
{

class WatchPageFixture : public QObject
{
protected:
    void makePage();

    QModelIndex cell(int row, int column) const { return m_table->model()->index(row, column); }
    void go(int row, int column = WatchModel::Value)
    {
        m_table->setCurrentIndex(cell(row, column));
    }
    QLineEdit* editor() const { return m_table->viewport()->findChild<QLineEdit*>(); }
    QString message() const;
    /// Without its symbol.
    QString state(int row) const { return cell(row, WatchModel::State).data().toString().mid(2); }
    void read(int number, const QList<qint64>& raw)
    {
        m_tags->takeReadings({readingOf(number, raw, QDateTime::currentMSecsSinceEpoch())});
    }

    std::unique_ptr<Machine> m_machine;
    std::unique_ptr<TagList> m_tags;
    std::unique_ptr<WatchPage> m_page;
    WatchTable* m_table = nullptr;
    qint64 m_now = 0;                    ///< milliseconds, of the table
    std::unique_ptr<QSignalSpy> m_ended; ///< Machine::jobEnded
};

inline void WatchPageFixture::makePage()
{
    m_machine.reset(new Machine);
    m_tags.reset(new TagList);
    m_tags->setValues({{1, tagOf("D100/s16*0.1,min=0,max=16,unit=bar", "Pressure")},
                       {2, tagOf("X17@2", "Ready")},
                       {3, tagOf("Y10", "Pump")},
                       {4, tagOf("D0")}});
    m_page.reset(new WatchPage({m_machine.get(), m_tags.get()}));
    m_table = m_page->findChild<WatchTable*>();
    m_table->setClock([this] { return m_now; });
    m_ended.reset(new QSignalSpy(m_machine.get(), &Machine::jobEnded));
    m_page->resize(1000, 500);
    m_page->show();
    QApplication::setActiveWindow(m_page.get());
    QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
    m_table->setFocus();
    m_now += 1000; // what is seen has been seen for long
}

inline QString WatchPageFixture::message() const
{
    return m_page->findChild<QLabel*>(QStringLiteral("message"))->text();
}

} // namespace kxpanel

#endif
