#include "kxpanel/tags/tag_commands.h"

#include "kxpanel/tags/tag_list.h"
#include "tools/kxpanel/tag_samples.h"

#include <QUndoStack>

using namespace kxpanel;

class TagCommandsTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void insertedTagsGoAndComeBackWithTheirNumbers();
    void removedValuesComeBackToTheirRows();
    void movesBlocks_data();
    void movesBlocks();
    void editsAreUndone();
    void eachEditIsUndoneAlone();
    void editsOfOthersAreUndoneAlone();
    void whatChangesNothingKeepsWhatWasUndone();

private:
    QString numbers() const;
    void edit(int number, const char* name, bool isComment = false);

    TagList m_list;
    QUndoStack m_undo;
};

void TagCommandsTest::init()
{
    m_undo.clear();
    m_list.setValues({});
    QList<WatchedValue> values;
    for (int i = 0; i < 5; ++i)
        values << WatchedValue{i + 1, tagOf(qPrintable(QStringLiteral("D%1").arg(i)))};
    m_list.setValues(values);
}

QString TagCommandsTest::numbers() const
{
    QString text;
    for (const WatchedValue& value : m_list.values())
        text += QString::number(value.number) + QLatin1Char(' ');
    return text.trimmed();
}

void TagCommandsTest::edit(int number, const char* name, bool isComment)
{
    kx::Tag tag = m_list.find(number)->tag;
    (isComment ? tag.comment : tag.name) = QString::fromLatin1(name);
    m_undo.push(new EditTag(&m_list, *m_list.find(number), tag));
}

void TagCommandsTest::insertedTagsGoAndComeBackWithTheirNumbers()
{
    auto* const command = new InsertTags(&m_list, 1, {tagOf("D10:2", "Flow")});
    m_undo.push(command);
    const QList<int> added = command->numbers();
    QCOMPARE(added.size(), 2);
    const QString after = QStringLiteral("1 %1 %2 2 3 4 5").arg(added.at(0)).arg(added.at(1));
    QCOMPARE(numbers(), after);
    m_undo.undo();
    QCOMPARE(numbers(), QStringLiteral("1 2 3 4 5"));
    m_undo.redo();
    QCOMPARE(numbers(), after);
    QCOMPARE(m_list.find(added.at(1))->tag.name, QStringLiteral("Flow 2"));
}

void TagCommandsTest::removedValuesComeBackToTheirRows()
{
    m_undo.push(new RemoveTags(&m_list, {5, 1, 3, 77}));
    QCOMPARE(numbers(), QStringLiteral("2 4"));
    m_undo.undo();
    QCOMPARE(numbers(), QStringLiteral("1 2 3 4 5"));
    m_undo.redo();
    QCOMPARE(numbers(), QStringLiteral("2 4"));
}

void TagCommandsTest::movesBlocks_data()
{
    QTest::addColumn<QList<int>>("moved");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("order");
    QTest::newRow("up") << QList<int>{4} << 1 << "1 4 2 3 5";
    QTest::newRow("down") << QList<int>{1} << 3 << "2 3 1 4 5";
    QTest::newRow("to the end") << QList<int>{1, 2} << 5 << "3 4 5 1 2";
    QTest::newRow("apart, they come together") << QList<int>{1, 5} << 3 << "2 3 1 5 4";
    QTest::newRow("where they are") << QList<int>{2, 3} << 2 << "1 2 3 4 5";
}

void TagCommandsTest::movesBlocks()
{
    QFETCH(QList<int>, moved);
    QFETCH(int, row);
    pushEdit(&m_undo, std::make_unique<MoveTags>(&m_list, moved, row));
    QTEST(numbers(), "order");
    QCOMPARE(m_undo.count(), numbers() == QLatin1String("1 2 3 4 5") ? 0 : 1);
    m_undo.undo();
    QCOMPARE(numbers(), QStringLiteral("1 2 3 4 5"));
}

void TagCommandsTest::editsAreUndone()
{
    edit(2, "Flow");
    QCOMPARE(m_list.find(2)->tag.name, QStringLiteral("Flow"));
    QCOMPARE(m_undo.undoText(), QStringLiteral("edit of D1"));
    m_undo.undo();
    QCOMPARE(m_list.find(2)->tag.name, QString());
    m_undo.redo();
    QCOMPARE(m_list.find(2)->tag.name, QStringLiteral("Flow"));
}

void TagCommandsTest::eachEditIsUndoneAlone()
{
    edit(2, "Flow");
    edit(2, "Inflow");
    m_undo.undo();
    QCOMPARE(m_list.find(2)->tag.name, QStringLiteral("Flow"));
    m_undo.undo();
    QCOMPARE(m_list.find(2)->tag.name, QString());
    m_undo.redo();
    m_undo.redo();
    QCOMPARE(m_list.find(2)->tag.name, QStringLiteral("Inflow"));
}

void TagCommandsTest::editsOfOthersAreUndoneAlone()
{
    edit(2, "Flow");
    edit(3, "Pressure");
    edit(3, "after the filter", true);
    QCOMPARE(m_undo.count(), 3);
    m_undo.undo();
    QCOMPARE(m_list.find(3)->tag.comment, QString());
    QCOMPARE(m_list.find(3)->tag.name, QStringLiteral("Pressure"));
}

// Rows dropped where they were, a format typed as it is.
void TagCommandsTest::whatChangesNothingKeepsWhatWasUndone()
{
    edit(2, "Flow");
    m_undo.undo();
    pushEdit(&m_undo, std::make_unique<MoveTags>(&m_list, QList<int>{2, 3}, 2));
    QVERIFY(m_undo.canRedo());
    const WatchedValue value = *m_list.find(4);
    pushEdit(&m_undo, std::make_unique<EditTag>(&m_list, value, value.tag));
    QVERIFY(m_undo.canRedo());
    m_undo.redo();
    QCOMPARE(m_list.find(2)->tag.name, QStringLiteral("Flow"));
    QCOMPARE(m_undo.count(), 1);
}

QTEST_GUILESS_MAIN(TagCommandsTest)
#include "tst_tag_commands.moc"
