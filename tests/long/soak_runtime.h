/// A runtime that talks to controllers in memory over a line with faults, as fast
/// as it can, and holds every value and every result against their memory.
#ifndef KX_TESTS_LONG_SOAK_RUNTIME_H
#define KX_TESTS_LONG_SOAK_RUNTIME_H

#include "long/known_addresses.h"
#include "model/random_source.h"
#include "tarvelan_kx_series.h"

const int SOAK_RETRY_LIMIT = 3;
const int SOAK_LINK = 4;
const int GAP_IN_RECIPE_BUFFER = 5; // words between the recipe ranges

struct SoakCounts {
    qint64 exchanges;
    qint64 accepted;
    qint64 repeated;
    qint64 failed;
    qint64 reads;
    qint64 writes;
    qint64 conditionReads;
    qint64 recipeBlocks;
    qint64 recipes;
    qint64 plans;
    qint64 initialisations;
    qint64 reports;
    qint64 valuesCompared;
    qint64 cachesChecked;
};

class SoakRuntime
{
public:
    explicit SoakRuntime(quint64 seed);
    ~SoakRuntime();

    /// Checks the cache that goes, initialises with a request limit of `maxWords`, then plans the
    /// recipes.
    void initialise(int maxWords);
    void watch(const std::vector<DeviceRange>& ranges);

    /// One request and its reply; false when there is nothing to send.
    bool exchange();

    void write(const DeviceRange& range);
    void askOnce(const DeviceRange& range);
    bool isAskedOnce() const { return m_conditionAsked; }

    void startRecipe(bool download);
    bool isRecipeRunning() const { return m_shared[60115] == 1 || m_shared[60116] == 1; }

    /// Percent of replies that are bad.
    void setFaults(int percent) { m_faults = percent; }
    /// Whether reports are now and then answered by a write from inside.
    void setWritesInside(bool writes) { m_writesInside = writes; }
    /// Changes some values of the controllers' own.
    void letTheProcessMove();

    /// The cache and the controllers' memory agree on all of it?
    void compare(const DeviceRange& range);
    /// Values as a screen reads them, which gives each address a record.
    QByteArray values(const DeviceRange& range);
    /// The cache holds each address that came in since it was empty once, and no other?
    void checkCache();

    RandomSource& random() { return m_random; }
    SoakCounts& counts() { return m_counts; }
    int maxWords() const { return m_maxWords; }

private:
    static void valueChanged(int link, int station, QString name, int address);

    void reported(int link, int station, const QString& name, int address);
    void conditionEnded(int result);
    QByteArray damaged(QByteArray reply);
    void checkResult(int result, bool isGood);
    void checkServed(int kind, const VARIABLE& job);
    void checkRecipe(bool isGood);
    void noteCached(int result, int kind);

    RandomSource m_random;
    MemoryController m_controller;
    KnownAddresses m_known;
    SoakCounts m_counts;
    std::vector<unsigned char> m_shared;
    std::vector<quint16> m_recipe;
    QMutex m_mutex;
    FRAME_PRO m_request;
    int m_faults;
    int m_maxWords;
    int m_badInARow;
    bool m_handlesReply;
    bool m_writesInside;
    bool m_conditionAsked;
    bool m_recipeFailed;
};

/// Says what went wrong and ends the program with exit code 1.
[[noreturn]] void soakFailed(const QString& what);

/// The same, with the job, unless `holds`.
void soakExpect(bool holds, const char* what, const VARIABLE& job);

#endif
