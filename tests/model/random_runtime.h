/// A runtime that makes random calls, each to the library and to the plain driver,
/// and keeps the first difference between the two.
#ifndef KX_TESTS_MODEL_RANDOM_RUNTIME_H
#define KX_TESTS_MODEL_RANDOM_RUNTIME_H

#include "model/plain_driver.h"
#include "model/random_values.h"
#include "model/record_text.h"

#include <QtCore/QStringList>

#include <vector>

/// Changes the read jobs as a runtime may at any time: payloads, whole jobs, their order.
void changeJobs(QList<VARIABLE>& jobs, RandomSource& random);

class RandomRuntime
{
public:
    explicit RandomRuntime(quint64 seed);

    /// One random call and the comparison after it.
    void step();
    /// Compares all state of both drivers.
    void compareState();

    bool differs() const { return !m_difference.isEmpty(); }
    /// The first difference and the calls that led to it.
    QString story() const;

private:
    typedef void (RandomRuntime::*Call)();
    struct Share {
        int weight;
        Call call;
    };

    /// A call, drawn by weight.
    Call drawCall();

    // Entry points: random_exchange.cpp, random_catalogue.cpp, random_planning.cpp.
    void initialise();
    void poll();
    void deal();
    void exchange();
    void requestRecipe();
    void getData();
    void setData();
    void planReads();
    void addConditionRead();
    void floodQueue();
    void setRecipe();
    void checkAddress();
    void listRegisters();
    void copyAddresses();

    // Internal functions: random_internals.cpp, random_planning.cpp.
    void weigh();
    void merge();
    void markMonitored();
    void setBit();
    void queueJob();
    void buildFrame();
    void checkReply();
    void finishJob();
    void fillRecipeJob();
    void lookUpRecord();
    void saveWritten();
    void settleWrite();
    void reportWord();
    void reportWhole();
    void reportByte();

    // What a runtime may do to the driver object: random_outside_changes.cpp.
    void appendRecord();
    void changeRecord();
    void rearrangeRecords();
    void keepCopy();
    void changeLists();
    void changeTypeOrder();

    // To the read jobs alone: random_read_jobs.cpp.
    void changeReadJobs();
    void keepReadJobs();

    void called(const QString& call);
    /// Starts a fresh count of reports for both sides.
    void beginCalls();
    void libraryReported(const Report& report);
    void plainReported(int link, int station, const QString& name, int address);
    template <class Side>
    void callFromInside(Side& side, const Report& report, int number, QList<QByteArray>& read);
    void compareReports();
    void compareLists();
    void compareNumbers();
    bool isTooLarge(const FRAME_PRO& frame) const;

    template <class T>
    void same(const char* what, const T& library, const T& plain)
    {
        if (m_difference.isEmpty())
            m_difference = difference(what, library, plain);
    }

    template <class List>
    void sameList(const char* what, const List& library, const List& plain)
    {
        if (m_difference.isEmpty())
            m_difference = listDifference(what, library, plain);
    }

    RandomValues m_values;
    RandomSource& m_random;
    DriverFixture m_library;
    PlainDriver m_plain;
    std::vector<unsigned char> m_plainShared;
    std::vector<unsigned short> m_plainRecipe;
    QList<Report> m_plainReports;
    QList<QByteArray> m_libraryRead;
    QList<QByteArray> m_plainRead;
    quint64 m_callSeed = 0;
    int m_depth = 0;
    QList<_DATA_> m_foreign;
    QList<_DATA_> m_plainForeign;
    QList<_DATA_> m_copy;
    QList<_DATA_> m_plainCopy;
    QList<VARIABLE> m_jobCopy;
    QList<VARIABLE> m_plainJobCopy;
    int m_callCount = 0;
    QStringList m_calls;
    QString m_difference;
};

#endif
