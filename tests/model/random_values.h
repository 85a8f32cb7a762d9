#ifndef KX_TESTS_MODEL_RANDOM_VALUES_H
#define KX_TESTS_MODEL_RANDOM_VALUES_H

#include "driver/records.h"
#include "model/random_source.h"

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>

/// Arguments for random calls. Most come from a small pool that changes now and
/// then, so that calls meet each other; the rest lie at the edges of their range.
class RandomValues
{
public:
    explicit RandomValues(quint64 seed);

    RandomSource& random() { return m_random; }

    /// Another pool of types and stations.
    void changePool();

    QString regType();
    int station();
    int address(const QString& regType);
    int count();
    int kind() { return m_random.oneOf({2, 2, 3, 4, 0, 7, -1}); }
    QString addressText(const QString& regType);

    /// Payload for any count(), mostly small values.
    QByteArray payload();

    KEY_ADDRESS keyAddress();
    VARIABLE job();
    _RCP_VAR_PRO recipeVariable(int link);
    QVector<_RCP_VAR_PRO> recipe(int link);
    _DATA_ dataArea();
    QByteArray parameters();

    /// A reply to `frame`, good or bad in any of the usual ways.
    QByteArray reply(const FRAME_PRO& frame);

private:
    QByteArray goodReply(const FRAME_PRO& frame);
    unsigned char dataByte();

    RandomSource m_random;
    QStringList m_types;
    int m_stations[2] = {1, 2};
    QHash<QByteArray, QByteArray> m_lastReplies;
};

#endif
