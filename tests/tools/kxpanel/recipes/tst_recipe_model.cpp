#include "kxpanel/recipes/recipe_model.h"

#include "tools/kxpanel/recipes/recipe_samples.h"

#include <QtTest/QTest>

using namespace kxpanel;

class RecipeModelTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void showsTheFileBeforeAnythingIsRead();
    void comparesWhatWasRead();
    void forgetsWhatWasRead();
    void differencesHaveAColour();
    void tipsSayMore();

private:
    QStringList column(RecipeModel::Column column) const;

    std::unique_ptr<RecipeModel> m_model;
};

void RecipeModelTest::init()
{
    m_model = std::make_unique<RecipeModel>();
    m_model->setRows(recipeRows());
}

QStringList RecipeModelTest::column(RecipeModel::Column column) const
{
    QStringList texts;
    for (int row = 0; row < m_model->rowCount(); ++row)
        texts << m_model->index(row, column).data().toString();
    return texts;
}

void RecipeModelTest::showsTheFileBeforeAnythingIsRead()
{
    QCOMPARE(column(RecipeModel::Name),
             (QStringList{"Limit", "Second limit", "Lamp", "Batch", "Spare"}));
    QCOMPARE(column(RecipeModel::Address), (QStringList{"D110", "D111", "M20", "D130", "D120"}));
    QCOMPARE(column(RecipeModel::Station), (QStringList{"1", "1", "1", "1", "1"}));
    QCOMPARE(column(RecipeModel::InFile), (QStringList{"650 mm", "1300 mm", "1", "BATCH 7 ", ""}));
    QCOMPARE(column(RecipeModel::InController), (QStringList{"", "", "", "", ""}));
    QCOMPARE(column(RecipeModel::State),
             (QStringList{"? not read", "? not read", "? not read", "? not read",
                          QString::fromUtf8("○ not in the file")}));
    QVERIFY(!m_model->isRead());
}

void RecipeModelTest::comparesWhatWasRead()
{
    m_model->setValues(simulatedValues());
    QCOMPARE(column(RecipeModel::InController),
             (QStringList{"650 mm", "1200 mm", "1", "BATCH 7 ", "50 bar"}));
    QCOMPARE(column(RecipeModel::State),
             (QStringList{"= same", QString::fromUtf8("≠ differs"), "= same", "= same",
                          QString::fromUtf8("○ not in the file")}));
    QCOMPARE(m_model->count(RecipeState::Same), 3);
    QCOMPARE(m_model->count(RecipeState::Differs), 1);
    QCOMPARE(m_model->count(RecipeState::NoValue), 1);
    QCOMPARE(m_model->count(RecipeState::NotRead), 0);
}

void RecipeModelTest::forgetsWhatWasRead()
{
    m_model->setValues(simulatedValues());
    m_model->setValues({});
    QCOMPARE(m_model->count(RecipeState::NotRead), 4);
    m_model->setValues(simulatedValues());
    m_model->setRows(recipeRows("name,address,value\nLimit,D110,650\n"));
    QCOMPARE(column(RecipeModel::State), QStringList{"? not read"});
}

void RecipeModelTest::differencesHaveAColour()
{
    m_model->setValues(simulatedValues());
    QVERIFY(m_model->index(1, RecipeModel::State).data(Qt::ForegroundRole).isValid());
    QVERIFY(m_model->index(1, RecipeModel::InController).data(Qt::ForegroundRole).isValid());
    QVERIFY(!m_model->index(1, RecipeModel::InFile).data(Qt::ForegroundRole).isValid());
    QVERIFY(!m_model->index(0, RecipeModel::State).data(Qt::ForegroundRole).isValid());
}

void RecipeModelTest::tipsSayMore()
{
    QCOMPARE(m_model->index(1, RecipeModel::Name).data(Qt::ToolTipRole).toString(),
             QString("line 3 (Second limit)"));
    QCOMPARE(m_model->index(3, RecipeModel::Address).data(Qt::ToolTipRole).toString(),
             QString("4 address(es) from D130 on"));
    m_model->setRows(recipeRows("name,address,value\n<b>Pump</b>,D1,5\n"));
    QCOMPARE(m_model->index(0, RecipeModel::Name).data(Qt::ToolTipRole).toString(),
             QString("<qt>line 2 (&lt;b&gt;Pump&lt;/b&gt;)</qt>")); // as it is written
    for (int section = 0; section < RecipeModel::COLUMNS; ++section) {
        for (const int role : {int(Qt::DisplayRole), int(Qt::ToolTipRole)})
            QVERIFY(!m_model->headerData(section, Qt::Horizontal, role).toString().isEmpty());
    }
}

QTEST_MAIN(RecipeModelTest)

#include "tst_recipe_model.moc"
