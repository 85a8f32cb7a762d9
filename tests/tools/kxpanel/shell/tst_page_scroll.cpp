#include "kxpanel/shell/page_scroll.h"

#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QVBoxLayout>

using namespace kxpanel;

class PageScrollTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void thePageFillsTheArea();
    void thePageIsNeverSmallerThanItCanBe();
    void thePageGrowsWithWhatItShows();
    void whatWouldLikeMoreRoomDoesNotScroll();
    void whatGetsTheKeyboardComesIntoView();

private:
    /// Of a part of the page; it takes all that there is.
    void addPart(int leastWidth, int leastHeight);
    QSize pageSize() const { return m_page->size(); }

    std::unique_ptr<PageScroll> m_area;
    QWidget* m_page = nullptr;
    QVBoxLayout* m_rows = nullptr;
};

void PageScrollTest::init()
{
    m_page = new QWidget;
    m_rows = new QVBoxLayout(m_page);
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setSpacing(0);
    m_area = std::make_unique<PageScroll>(m_page);
    m_area->resize(400, 300);
    m_area->show();
    QVERIFY(QTest::qWaitForWindowActive(m_area.get()));
}

void PageScrollTest::addPart(int leastWidth, int leastHeight)
{
    auto* const part = new QLineEdit(m_page);
    part->setMinimumSize(leastWidth, leastHeight);
    part->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_rows->addWidget(part);
}

void PageScrollTest::thePageFillsTheArea()
{
    addPart(100, 100);
    QTRY_COMPARE(pageSize(), QSize(400, 300));
    m_area->resize(500, 350);
    QTRY_COMPARE(pageSize(), QSize(500, 350));
    QVERIFY(!m_area->verticalScrollBar()->isVisible());
    QVERIFY(!m_area->horizontalScrollBar()->isVisible());
}

void PageScrollTest::thePageIsNeverSmallerThanItCanBe()
{
    addPart(100, 320);
    const int bar = m_area->verticalScrollBar()->sizeHint().width();
    QTRY_COMPARE(pageSize(), QSize(400 - bar, 320));
    QVERIFY(m_area->verticalScrollBar()->isVisible());
    QVERIFY(!m_area->horizontalScrollBar()->isVisible());
    m_area->resize(90, 330);
    QTRY_COMPARE(pageSize().width(), 100);
    QVERIFY(m_area->horizontalScrollBar()->isVisible());
}

void PageScrollTest::thePageGrowsWithWhatItShows()
{
    addPart(100, 200);
    QTRY_COMPARE(pageSize(), QSize(400, 300));
    addPart(100, 200);
    QTRY_COMPARE(pageSize().height(), 400);
    m_page->findChild<QLineEdit*>()->hide();
    QTRY_COMPARE(pageSize(), QSize(400, 300));
}

void PageScrollTest::whatWouldLikeMoreRoomDoesNotScroll()
{
    addPart(100, 100);
    auto* const words = new QLabel("words that wrap", m_page);
    words->setWordWrap(true);
    m_rows->addWidget(words);
    auto* const part = new QScrollArea(m_page); // has 500 pixels to show, and does with less
    part->setWidgetResizable(true);
    part->setWidget(new QWidget);
    part->widget()->setMinimumSize(100, 500);
    m_rows->addWidget(part);
    QTRY_COMPARE(pageSize(), QSize(400, 300));
    QVERIFY(!m_area->verticalScrollBar()->isVisible());
}

void PageScrollTest::whatGetsTheKeyboardComesIntoView()
{
    addPart(100, 290);
    addPart(100, 290);
    QTRY_COMPARE(pageSize().height(), 580);
    QLineEdit* const second = m_page->findChildren<QLineEdit*>().last();
    m_area->verticalScrollBar()->setValue(0);
    second->move(0, 400); // all of it is below the edge
    QVERIFY(second->visibleRegion().isEmpty());
    second->setFocus();
    QVERIFY(!second->visibleRegion().isEmpty());
}

QTEST_MAIN(PageScrollTest)

#include "tst_page_scroll.moc"
