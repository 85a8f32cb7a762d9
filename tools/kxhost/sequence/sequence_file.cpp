#include "kxhost/sequence/sequence_file.h"

#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "panel/files/text_file.h"
#include "panel/sequence/sequence_text.h"
#include "panel/text/counted.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace kx
{

namespace
{

const int MOST_FAULTS = 50; // shown; a file that is no sequence may have very many

int complainOf(const QString& file, const QList<SequenceFault>& faults)
{
    for (const SequenceFault& fault : faults.mid(0, MOST_FAULTS))
        complain(faultText(file, fault), EXIT_WRONG_USAGE);
    const auto others = faults.size() - MOST_FAULTS;
    if (others > 0)
        complain(
            QStringLiteral("%1: and %2").arg(file, counted(others, "other fault", "other faults")),
            EXIT_WRONG_USAGE);
    return EXIT_WRONG_USAGE;
}

} // namespace

int readSequenceFile(const SequenceOptions& options, Sequence* sequence)
{
    SequenceContext context;
    context.station = options.connection.station;
    context.maxWords = options.connection.session.maxWords;
    context.order = options.order;
    const QDir folder = QFileInfo(options.file).dir();
    context.loadTags = [folder](const QString& name, QList<Tag>* tags, QString* error) {
        return loadTags(folder.filePath(name), tags, error);
    };
    QString error;
    for (const QString& file : options.tagsFiles) {
        QList<Tag> tags;
        if (!loadTags(file, &tags, &error))
            return complain(error, EXIT_WRONG_USAGE);
        context.tags << tags;
    }
    QByteArray text;
    if (!readTextFile(options.file, &text, &error))
        return complain(error, EXIT_WRONG_USAGE);
    const QList<SequenceFault> faults = parseSequence(text, context, sequence);
    return faults.isEmpty() ? EXIT_FINE : complainOf(options.file, faults);
}

} // namespace kx
