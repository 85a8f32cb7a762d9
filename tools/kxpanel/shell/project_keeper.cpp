#include "kxpanel/shell/project_keeper.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSettings>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

namespace kxpanel
{

namespace
{

const int LOOKING_TIME = 200; // milliseconds

bool isTable(const QString& path)
{
    return path.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive);
}

} // namespace

ProjectKeeper::ProjectKeeper(const Window& window, QSettings* settings, QWidget* parent)
    : QObject(parent), m_window(window), m_settings(settings), m_parent(parent)
{
    m_looking.setSingleShot(true);
    m_looking.setInterval(LOOKING_TIME);
    connect(&m_looking, &QTimer::timeout, this, &ProjectKeeper::look);
    connect(&m_file, &ProjectFile::changed, this, &ProjectKeeper::stateChanged);
}

QString ProjectKeeper::title() const
{
    return path().isEmpty() ? tr("unnamed project") : QFileInfo(path()).fileName();
}

bool ProjectKeeper::isChanged()
{
    if (m_looking.isActive()) {
        m_looking.stop();
        look();
    }
    return m_file.isChanged();
}

QStringList ProjectKeeper::recentFiles() const
{
    return recent().paths();
}

RecentFiles ProjectKeeper::recent() const
{
    m_settings->sync(); // another window may have changed them
    return RecentFiles(m_settings);
}

Project ProjectKeeper::shown()
{
    Project project = m_project;
    m_window.collect(&project);
    return project;
}

void ProjectKeeper::settle()
{
    m_looking.stop();
    m_file.settle(shown());
}

void ProjectKeeper::beginNew()
{
    leave([this] {
        m_file.begin(Project());
        show(Project());
    });
}

void ProjectKeeper::chooseFile()
{
    QFileDialog* const dialog = makeDialog(tr("Open"));
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters({tr("Projects and tags files (*.kxpanel *.csv)"), tr("All files (*)")});
    connect(dialog, &QFileDialog::fileSelected, this, &ProjectKeeper::openRecent);
    dialog->open();
}

void ProjectKeeper::openRecent(const QString& path)
{
    if (isTable(path))
        emit tagsChosen(path); // which may be undone
    else
        leave([this, path] { open(path); });
}

void ProjectKeeper::open(const QString& path)
{
    if (isTable(path)) {
        emit tagsChosen(path);
        return;
    }
    Project project;
    QStringList faults;
    if (!m_file.open(path, &project, &faults)) {
        if (!QFileInfo::exists(path))
            recent().remove(path);
        emit failed(faults.join(QLatin1Char('\n')));
        return;
    }
    show(project);
    recent().add(path);
    emit failed(QString());
    emit stateChanged();
}

void ProjectKeeper::show(const Project& project)
{
    m_project = project;
    m_window.show(project);
    settle();
}

void ProjectKeeper::save()
{
    saveAnd([] {});
}

void ProjectKeeper::saveAs()
{
    chooseNameAndSave([] {});
}

void ProjectKeeper::saveAnd(const std::function<void()>& next)
{
    if (path().isEmpty())
        chooseNameAndSave(next);
    else
        saveTo(path(), next);
}

void ProjectKeeper::chooseNameAndSave(const std::function<void()>& next)
{
    QFileDialog* const dialog = makeDialog(tr("Save as"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("kxpanel"));
    dialog->setNameFilters({tr("Projects (*.kxpanel)"), tr("All files (*)")});
    connect(dialog, &QFileDialog::fileSelected, this,
            [this, next](const QString& path) { saveTo(path, next); });
    dialog->open();
}

void ProjectKeeper::saveTo(const QString& path, const std::function<void()>& next)
{
    m_looking.stop();
    QString fault;
    if (!m_file.save(path, shown(), &fault)) {
        look(); // what was changed a moment ago is not saved either
        emit failed(fault);
        return;
    }
    recent().add(path);
    emit stateChanged();
    emit failed(QString());
    emit said(tr("Saved %1").arg(title()));
    next();
}

void ProjectKeeper::leave(const std::function<void()>& next)
{
    if (!isChanged())
        return next();
    if (m_question)
        return;
    auto* const question = new QMessageBox(m_parent);
    m_question = question;
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setTextFormat(Qt::PlainText);
    question->setIcon(QMessageBox::Question);
    question->setText(tr("Save the changes to %1?").arg(title()));
    question->setInformativeText(tr("Otherwise they are lost."));
    question->setStandardButtons(QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    question->setDefaultButton(QMessageBox::Save);
    connect(question, &QMessageBox::finished, this, [this, next](int button) {
        m_question = nullptr; // though it is deleted later
        if (button == QMessageBox::Save)
            saveAnd(next);
        else if (button == QMessageBox::Discard)
            next();
    });
    question->open();
}

QFileDialog* ProjectKeeper::makeDialog(const QString& title)
{
    const QString folder = path().isEmpty() ? QDir::currentPath() : QFileInfo(path()).path();
    auto* const dialog = new QFileDialog(m_parent, title, folder);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    return dialog;
}

} // namespace kxpanel
