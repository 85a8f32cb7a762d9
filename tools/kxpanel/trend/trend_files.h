#ifndef KX_KXPANEL_TREND_TREND_FILES_H
#define KX_KXPANEL_TREND_TREND_FILES_H

#include "kxpanel/trend/files/trend_file_reader.h"
#include "kxpanel/trend/files/trend_saver.h"
#include "kxpanel/trend/model/trend_channels.h"
#include "kxpanel/trend/model/trend_legend.h"
#include "kxpanel/trend/model/trend_view.h"

class QFileDialog;

namespace kxpanel
{

class TrendPlot;

/// What a trend opens and saves: asks for a name, does it, and says how it went.
class TrendFiles : public QObject
{
    Q_OBJECT

public:
    struct Parts {
        TrendChannels* channels;
        TrendView* view;
        const TrendLegend* legend;
        TrendPlot* plot;
    };

    /// @param window the dialogs'; owns this
    TrendFiles(const Parts& parts, QWidget* window);

    void askToOpen();
    void askToSavePicture();
    void askToSaveValues();

    /// Shows a recording instead of one that was opened before; said() comes when it is read.
    void open(const QString& path);
    /// Takes the recording away; one that is being read is not shown either.
    void close();
    /// All of the time of the recording that is opened.
    void showWhole();
    void savePicture(const QString& path);
    /// said() comes once more when it is done.
    void saveValues(const QString& path);

signals:
    /// One line.
    void said(const QString& text);
    /// A recording is shown, or none any more.
    void recordingChanged(bool isShown);

private:
    QFileDialog* ask(const QString& title, const QString& filter, const QString& suffix,
                     void (TrendFiles::*then)(const QString&));
    void showRecording();
    QString remarkOn(int shown) const;
    void saySaved(const QString& error);

    Parts m_parts;
    QWidget* m_window;
    TrendFileReader m_reader;
    TrendSaver m_saver;
    QString m_path;        ///< being read
    TrendRange m_recorded; ///< of the one that is shown
};

} // namespace kxpanel

#endif
