// Every value that a watch shows comes from the Modbus number of its address, whatever
// else is watched and whatever the request limit.

#include "model/random_source.h"
#include "panel/watch/watch.h"
#include "registers/register_types.h"
#include "tools/panel/watch/numbering_line.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

const int LONGEST = 125; // registers of one reply, and the highest limit of kxhost
const int LISTS = 4;     // random ones for each limit
const int NEAR = 24;     // addresses from a split, or from an end of the type

DriverEntryPoints loadedDriver()
{
    DriverEntryPoints entryPoints;
    QString error;
    if (!loadDriver(QString::fromLatin1(KX_DRIVER_FILE), &entryPoints, &error))
        qFatal("%s", qPrintable(error));
    return entryPoints;
}

QList<Tag> tagsOf(const QStringList& addresses)
{
    QList<Tag> tags;
    for (const QString& address : addresses) {
        Tag tag;
        QString error;
        if (!parseAddressRange(address, &tag.range, &error))
            qFatal("%s", qPrintable(error));
        tags << tag;
    }
    return tags;
}

/// The Modbus number that each shown value came from, by the value itself: one watch
/// for registers, and one cycle for each bit of a coil's number.
class Numbers
{
public:
    Numbers(const QList<Tag>& tags, int maxWords)
        : m_line(&m_clock), m_session(makeSession(maxWords)), m_watch(m_session.get())
    {
        m_watch.setTags(tags);
        m_numbers.fill(0, m_watch.list().entries().size());
        m_session->start();
        for (int bit = 0; bit < NumberingController::COIL_BITS; ++bit)
            addBit(bit);
    }

    /// The first wrong one; empty when there is none.
    QString fault() const
    {
        for (int i = 0; i < m_numbers.size(); ++i) {
            const WatchEntry& entry = m_watch.list().entries().at(i);
            const int number = modbusNumber(entry.type, entry.address);
            if (entry.state != WatchState::Ok || m_numbers.at(i) != expected(entry.type, number))
                return QStringLiteral("%1@%2 shows %3 instead of %4")
                    .arg(addressText(entry.type, entry.address))
                    .arg(entry.station)
                    .arg(m_numbers.at(i))
                    .arg(expected(entry.type, number));
        }
        return QString();
    }

private:
    std::unique_ptr<Session> makeSession(int maxWords)
    {
        SessionSettings settings;
        settings.maxWords = maxWords;
        QString error;
        std::unique_ptr<Session> session =
            Session::create(loadedDriver(), &m_line, settings, &error, &m_clock);
        if (!session)
            qFatal("%s", qPrintable(error));
        return session;
    }

    /// A 32CV holds its first register in the high word.
    static qint64 expected(const RegisterType* type, int number)
    {
        return registersPerAddress(type) == 1 ? number : qint64(number) << 16 | (number + 1);
    }

    /// Two cycles, since one may have begun when the bit changed.
    void addBit(int bit)
    {
        m_line.controller.coilBit = bit;
        const qint64 end = m_watch.summary().cycles + 2;
        while (m_watch.summary().cycles < end)
            m_clock.step();
        for (int i = 0; i < m_numbers.size(); ++i) {
            const WatchEntry& entry = m_watch.list().entries().at(i);
            if (entry.type->registerClass == BIT_CLASS)
                m_numbers[i] |= m_session->values(entry.range()).first() << bit;
            else
                m_numbers[i] = entry.value;
        }
    }

    VirtualClock m_clock;
    NumberingLine m_line;
    std::unique_ptr<Session> m_session;
    Watch m_watch;
    QVector<qint64> m_numbers; ///< as the entries
};

/// Near a split of the type, near its ends, or anywhere.
QString randomAddress(RandomSource* random)
{
    const RegisterType* const type = findRegisterType(QString::fromLatin1(random->oneOf(
        {"SM", "SM", "M", "SD", "32CV", "X", "Y", "S", "T", "C", "D", "CV", "TV", "Z"})));
    const int lowest = type->lowestAddress;
    const int highest = highestAddress(type);
    const int anywhere = random->between(lowest, highest);
    const int middle = random->oneOf({type->split, type->split, lowest, highest, anywhere});
    const int first = qBound(lowest, random->between(middle - NEAR, middle + NEAR), highest);
    const int count = random->between(1, qMin(random->oneOf({1, 2, 30}), highest - first + 1));
    return QStringLiteral("%1:%2@%3")
        .arg(addressText(type, first), QString::number(count),
             QString::number(random->between(1, 2)));
}

} // namespace

class WatchedNumbersTest : public QObject
{
    Q_OBJECT

private slots:
    void eachSideOfASplit_data();
    void eachSideOfASplit();
    void randomLists();
};

void WatchedNumbersTest::eachSideOfASplit_data()
{
    QTest::addColumn<QStringList>("addresses");
    QTest::addColumn<int>("maxWords");
    for (const int maxWords : {2, 32, 125}) {
        const auto row = [maxWords](const char* name, const QStringList& addresses) {
            QTest::addRow("%s, limit %d", name, maxWords) << addresses << maxWords;
        };
        row("M across", {"M2040:16@1"});
        row("SM across", {"SM250:12@1"});
        row("SD across", {"SD250:12@1"});
        row("SM on both sides of a gap", {"SM240@1", "SM270@1"});
        row("SM with ranges inside each other", {"SM200:100@1", "SM254:4@1", "SM255@1"});
        row("SM of two stations", {"SM250:12@1", "SM255:2@2"});
        row("32CV", {"32CV200:56@1"});
        row("CV beside 32CV", {"CV198:2@1", "32CV200:2@1"});
        row("Z across its split", {"Z14:2@1"});
    }
}

void WatchedNumbersTest::eachSideOfASplit()
{
    QFETCH(QStringList, addresses);
    QFETCH(int, maxWords);
    QCOMPARE(Numbers(tagsOf(addresses), maxWords).fault(), QString());
}

void WatchedNumbersTest::randomLists()
{
    RandomSource random(20);
    for (int maxWords = 2; maxWords <= LONGEST; ++maxWords) { // a 32CV takes 2
        for (int list = 0; list < LISTS; ++list) {
            QStringList addresses;
            for (int i = random.between(1, 8); i > 0; --i)
                addresses << randomAddress(&random);
            const QString fault = Numbers(tagsOf(addresses), maxWords).fault();
            QVERIFY2(fault.isEmpty(),
                     qPrintable(QStringLiteral("limit %1, %2: %3")
                                    .arg(QString::number(maxWords),
                                         addresses.join(QLatin1Char(' ')), fault)));
        }
    }
}

QTEST_GUILESS_MAIN(WatchedNumbersTest)
#include "tst_watched_numbers.moc"
