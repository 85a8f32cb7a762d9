#include "kxpanel/shell/page_table.h"

#include "kxpanel/machine/machine.h"
#include "kxpanel/tags/tag_list.h"

#include <QtTest/QTest>

using namespace kxpanel;

class PageTableTest : public QObject
{
    Q_OBJECT

private slots:
    void pagesFromTheLeft();
    void eachMakerMakesAnotherPage();
};

void PageTableTest::pagesFromTheLeft()
{
    Machine machine;
    TagList tags;
    QWidget window;
    QStringList pages;
    for (const PageMaker& maker : pageMakers()) {
        const Page* const page = maker({&machine, &tags}, &window);
        QCOMPARE(page->parentWidget(), &window);
        pages << page->key() + ": " + page->windowTitle();
    }
    QCOMPARE(pages, (QStringList{"watch: Watch", "line: Line", "frames: Frames", "health: Health",
                                 "recipes: Recipes"}));
}

void PageTableTest::eachMakerMakesAnotherPage()
{
    struct PlainPage : Page {
        PlainPage(const PageContext& context, QWidget* parent) : Page(parent), tags(context.tags) {}
        QString key() const override { return QStringLiteral("plain"); }
        TagList* tags;
    };
    TagList tags;
    QWidget window;
    const PageMaker maker = makerOf<PlainPage>();
    const auto* const one = static_cast<PlainPage*>(maker({nullptr, &tags}, &window));
    const auto* const other = static_cast<PlainPage*>(maker({nullptr, &tags}, &window));
    QVERIFY(one != other);
    QCOMPARE(one->tags, &tags);
    QCOMPARE(other->parentWidget(), &window);
}

QTEST_MAIN(PageTableTest)
#include "tst_page_table.moc"
