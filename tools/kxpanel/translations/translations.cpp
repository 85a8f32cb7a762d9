#include "kxpanel/translations/translations.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLibraryInfo>
#include <QtCore/QTranslator>

// Outside of any namespace, as Q_INIT_RESOURCE wants it.
static void takeCarriedTranslations()
{
#ifdef KX_HAS_TRANSLATIONS
    Q_INIT_RESOURCE(translations);
#endif
}

namespace
{

QString pathOfQt()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
#else
    return QLibraryInfo::location(QLibraryInfo::TranslationsPath);
#endif
}

bool take(const QLocale& locale, const QString& name, const QString& folder)
{
    auto* const translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(locale, name, QStringLiteral("_"), folder))
        return QCoreApplication::installTranslator(translator);
    delete translator;
    return false;
}

/// The texts in the sources are English: somebody who reads English first gets no other language.
bool isEnglishFirst(const QLocale& locale)
{
    return locale.uiLanguages().value(0).startsWith(QLatin1String("en"));
}

} // namespace

namespace kxpanel
{

bool takeLanguage(const QLocale& locale)
{
    takeCarriedTranslations();
    QLocale::setDefault(QLocale::c());
    const QString name = QStringLiteral("kxpanel");
    const QString folder = QStringLiteral(":/translations");
    if (isEnglishFirst(locale) || !take(locale, name, folder)) {
        take(QLocale(QLocale::English), name, folder); // the forms of counts
        return false;
    }
    for (const char* const module : {"qtbase", "qtserialport"})
        take(locale, QLatin1String(module), pathOfQt());
    return true;
}

} // namespace kxpanel
