/// Controllers in memory: coils and holding registers of a few stations, and the
/// reply to each request, worked out from its bytes alone.
#ifndef KX_TESTS_LONG_MEMORY_CONTROLLER_H
#define KX_TESTS_LONG_MEMORY_CONTROLLER_H

#include "driver/records.h"

#include <QtCore/QByteArray>

#include <vector>

class MemoryController
{
public:
    static const int STATIONS = 3; // 1 to 3

    MemoryController();

    int word(int station, int number) const { return m_stations[index(station)].words[at(number)]; }
    int coil(int station, int number) const { return m_stations[index(station)].coils[at(number)]; }
    void setWord(int station, int number, int value);
    void setCoil(int station, int number, bool on);

    /// Does what the request says. Empty when the request is malformed: wrong CRC,
    /// length, function, quantity or station.
    QByteArray replyTo(const FRAME_PRO& request);

private:
    struct Station {
        std::vector<quint16> words;
        std::vector<unsigned char> coils;
    };

    static size_t index(int station) { return static_cast<size_t>(station - 1); }
    static size_t at(int number) { return static_cast<size_t>(number & 0xFFFF); }

    bool isWellFormed(const FRAME_PRO& request) const;
    void carryOut(int station, const unsigned char* frame);
    QByteArray values(int station, const unsigned char* frame) const;

    std::vector<Station> m_stations;
};

#endif
