#include "panel/dump/dump_file.h"

#include "panel/dump/dump_reader.h"
#include "panel/files/file_text.h"
#include "panel/files/text_file.h"

namespace kx
{

namespace
{

/// @param number of the latest line, from 1
bool takeLines(const QByteArray& text, DumpReader* reader, int* number)
{
    for (int begin = 0; begin <= text.size();) {
        const int newline = static_cast<int>(text.indexOf('\n', begin));
        const int end = newline < 0 ? static_cast<int>(text.size()) : newline;
        ++*number;
        if (!reader->take(text.mid(begin, end - begin)))
            return false;
        begin = end + 1;
    }
    return reader->end();
}

} // namespace

bool parseDump(const QByteArray& bytes, const QString& path, Dump* dump, QString* error)
{
    QByteArray text;
    TextEncoding encoding = TextEncoding::Utf8;
    QString fault;
    if (!decodeText(bytes, &text, &encoding, &fault)) {
        *error = QStringLiteral("%1: %2").arg(path, fault);
        return false;
    }
    DumpReader reader;
    int line = 0;
    if (takeLines(text, &reader, &line)) {
        *dump = reader.dump();
        return true;
    }
    *error =
        QStringLiteral("%1:%2:%3: %4")
            .arg(path, QString::number(line), QString::number(reader.column()), reader.fault());
    return false;
}

bool loadDump(const QString& path, Dump* dump, QString* error)
{
    QByteArray text;
    return readTextFile(path, &text, error) && parseDump(text, path, dump, error);
}

} // namespace kx
