#ifndef KX_TESTS_MODEL_RANDOM_SOURCE_H
#define KX_TESTS_MODEL_RANDOM_SOURCE_H

#include <QtCore/QtGlobal>

#include <initializer_list>

/// Repeatable random numbers, the same on every machine and Qt (splitmix64).
class RandomSource
{
public:
    explicit RandomSource(quint64 seed) : m_state(seed) {}

    quint64 next()
    {
        m_state += Q_UINT64_C(0x9E3779B97F4A7C15);
        quint64 mixed = m_state;
        mixed = (mixed ^ (mixed >> 30)) * Q_UINT64_C(0xBF58476D1CE4E5B9);
        mixed = (mixed ^ (mixed >> 27)) * Q_UINT64_C(0x94D049BB133111EB);
        return mixed ^ (mixed >> 31);
    }

    /// 0 to `end` - 1.
    int below(int end) { return static_cast<int>(next() % static_cast<quint64>(end)); }

    int between(int lowest, int highest) { return lowest + below(highest - lowest + 1); }

    bool chance(int percent) { return below(100) < percent; }

    unsigned char byte() { return static_cast<unsigned char>(next() & 0xFF); }

    template <class T>
    T oneOf(std::initializer_list<T> values)
    {
        return *(values.begin() + below(static_cast<int>(values.size())));
    }

private:
    quint64 m_state;
};

#endif
