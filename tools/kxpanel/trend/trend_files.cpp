#include "kxpanel/trend/trend_files.h"

#include "kxpanel/trend/model/trend_text.h"
#include "kxpanel/trend/plot/trend_picture.h"

#include <QtWidgets/QFileDialog>

namespace kxpanel
{

TrendFiles::TrendFiles(const Parts& parts, QWidget* window)
    : QObject(window), m_parts(parts), m_window(window)
{
    connect(&m_reader, &TrendFileReader::finished, this, &TrendFiles::showRecording);
    connect(&m_saver, &TrendSaver::ended, this, &TrendFiles::saySaved);
}

QFileDialog* TrendFiles::ask(const QString& title, const QString& filter, const QString& suffix,
                             void (TrendFiles::*then)(const QString&))
{
    QFileDialog* dialog = new QFileDialog(m_window, title, QString(), filter);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    if (suffix.isEmpty()) {
        dialog->setFileMode(QFileDialog::ExistingFile);
    } else {
        dialog->setAcceptMode(QFileDialog::AcceptSave);
        dialog->setDefaultSuffix(suffix);
    }
    connect(dialog, &QFileDialog::fileSelected, this, then);
    dialog->open();
    return dialog;
}

void TrendFiles::askToOpen()
{
    ask(tr("Open recording"), tr("Recordings (*.csv *.sqlite *.sqlite3 *.db)"), QString(),
        &TrendFiles::open);
}

void TrendFiles::askToSavePicture()
{
    ask(tr("Save picture"), tr("Pictures (*.png *.svg)"), QStringLiteral("png"),
        &TrendFiles::savePicture);
}

void TrendFiles::askToSaveValues()
{
    ask(tr("Save values"), tr("Recordings (*.csv *.sqlite)"), QStringLiteral("csv"),
        &TrendFiles::saveValues);
}

void TrendFiles::open(const QString& path)
{
    QString error;
    const bool isOpen = m_reader.open(path, &error);
    if (isOpen)
        m_path = path;
    emit said(isOpen ? tr("Reading %1 …").arg(path) : error);
}

void TrendFiles::showRecording()
{
    const int shown = m_parts.channels->setRecorded(m_reader.channels());
    m_recorded = m_reader.range();
    showWhole();
    emit said(remarkOn(shown));
    emit recordingChanged(true);
}

void TrendFiles::close()
{
    if (m_reader.isReading())
        emit said(tr("%1 is no longer read").arg(m_path));
    m_reader.close();
    m_parts.channels->setRecorded({});
    m_recorded = TrendRange();
    emit recordingChanged(false);
}

void TrendFiles::showWhole()
{
    if (m_recorded.to > m_recorded.from)
        m_parts.view->show(m_recorded.from, m_recorded.to);
}

/// One line that names the file.
QString TrendFiles::remarkOn(int shown) const
{
    QStringList remarks = {m_reader.remark()};
    if (shown < m_reader.channels().size())
        remarks << tr("The plot has room for %1 of its values").arg(shown);
    remarks.removeAll(QString());
    if (remarks.isEmpty())
        remarks << tr("%1 of values").arg(spanText(m_reader.range().to - m_reader.range().from));
    const QString text = remarks.join(QLatin1String("; "));
    return text.startsWith(m_path) ? text : m_path + QLatin1String(": ") + text;
}

void TrendFiles::savePicture(const QString& path)
{
    QString error;
    const TrendView& view = *m_parts.view;
    const bool hasCursor = view.cursor(0) || view.cursor(1);
    const QString caption = hasCursor ? cursorText(view) : QString(); // not how to set one
    const bool isSaved = saveTrendPicture(path, m_parts.plot, *m_parts.legend, caption, &error);
    emit said(isSaved ? tr("%1 is saved").arg(path) : error);
}

void TrendFiles::saveValues(const QString& path)
{
    QString error;
    TrendExport values;
    const TrendView& view = *m_parts.view;
    if (m_saver.isSaving())
        return emit said(tr("%1 is still being saved").arg(m_saver.path()));
    if (!gatherTrend(path, m_parts.channels->list(), {view.from(), view.to() + 1}, view.now(),
                     &values, &error))
        return emit said(error);
    m_saver.save(values);
    emit said(tr("Saving %1 …").arg(path));
}

void TrendFiles::saySaved(const QString& error)
{
    if (!error.isEmpty())
        return emit said(error);
    QStringList remarks = {tr("%1 is saved").arg(m_saver.path())};
    if (m_saver.isThinned())
        remarks << tr("of old values only some are kept, the lowest and highest among them");
    if (m_saver.isRounded())
        remarks << tr("some numbers have more digits than the 17 that are written");
    emit said(remarks.join(QLatin1String("; ")));
}

} // namespace kxpanel
