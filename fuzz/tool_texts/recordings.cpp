#include "recording/csv/csv_recording_text.h"
#include "support/require.h"
#include "tool_texts/texts.h"

using namespace kx;

namespace
{

// Few bytes become a header by chance.
const char* const HEADERS[] = {"", "time,Pressure D100/s16*0.1@1 [bar],Pump Y10@2,gaps\n",
                               "\xEF\xBB\xBFtime,\"Length, \xC3\xBC\" D0/ascii:8@1,gaps\n",
                               "time,D0@1,D1/hex@1,D2/float@247,gaps\n"};

void checkHeader(const QList<RecordedTag>& tags)
{
    require(!tags.isEmpty(), "a recording has a tag");
    QList<RecordedTag> again;
    const QByteArray header = csvHeader(tags);
    require(header.count('\n') == 1 && header.endsWith('\n'), "a header is one line");
    require(parseCsvHeader(header.chopped(1), &again) && csvHeader(again) == header,
            "a header that is written out is the same header");
}

void checkEvents(const QList<RecordedEvent>& events, const QList<RecordedTag>& tags)
{
    for (const RecordedEvent& event : events) {
        require(event.tag >= 0 && event.tag < tags.size(), "a record is one of a tag");
        require(!event.isGap || !gapText(event.reason).isEmpty(), "a gap has a reason");
        require(event.isGap || !csvValue(event.value).contains('\n'), "a value is in one line");
    }
}

} // namespace

void readRecording(InputReader* input)
{
    QList<RecordedTag> tags;
    const QByteArray text = HEADERS[input->below(4)] + input->rest();
    QList<QByteArray> lines = text.split('\n');
    const auto parseHeader = [&tags](const QByteArray& line, QString* error) {
        *error = QStringLiteral("is no recording");
        return parseCsvHeader(line, &tags);
    };
    if (!takes(parseHeader, lines.takeFirst()))
        return;
    checkHeader(tags);
    for (const QByteArray& line : lines) {
        QList<RecordedEvent> events;
        const auto parseRow = [&](const QByteArray& row, QString* error) {
            events.clear();
            return parseCsvRow(row, tags, &events, error);
        };
        if (takes(parseRow, line))
            checkEvents(events, tags);
    }
}
