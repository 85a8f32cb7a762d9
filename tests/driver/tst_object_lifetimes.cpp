// The catalogue must outlive the driver object that works with it, at loading
// and at unloading, whatever the order in which the library was linked.

#include "driver/destructor_watch.h"
#include "driver/tarvelan.h"

#include <QtTest/QTest>

#include <cstring>

#include <dlfcn.h>

namespace
{

template <typename Object>
Object* find(void* library, const char* name)
{
    void* const address = dlsym(library, name);
    if (!address)
        qFatal("%s is missing", name);
    return static_cast<Object*>(address);
}

// A global object is all zero until it is constructed.
template <typename Object>
bool isConstructed(const Object& object)
{
    const char zero[sizeof(Object)] = {};
    return std::memcmp(static_cast<const void*>(&object), zero, sizeof object) != 0;
}

int detachedIn(const QList<QString>& strings)
{
    int detached = 0;
    for (const QString& string : strings)
        detached += string.isDetached() ? 1 : 0;
    return detached;
}

/// Writes down which objects live after each construction, and how many of their
/// strings they have given up after each destruction.
class LifetimeLog : public DestructorWatch
{
public:
    LifetimeLog() : DestructorWatch("libtarvelan_kx_series") {}

    void destructorRegistered() override
    {
        void* const library = dlopen(KX_DRIVER_LIBRARY, RTLD_NOW | RTLD_NOLOAD);
        if (!library)
            qFatal("%s", dlerror());
        QStringList alive;
        if (isConstructed(find<QString>(library, "REG_LIST")[12]))
            alive << "REG_LIST";
        if (isConstructed(find<QString>(library, "REG_DESCRIPTION")[64]))
            alive << "REG_DESCRIPTION";
        if (isConstructed(find<tarvelan>(library, "driver")->regNames))
            alive << "driver";
        constructions << alive.join(" ");
        dlclose(library);
    }

    void destructorRan() override
    {
        destructions << QString("REG_LIST %1, REG_DESCRIPTION %2, driver %3")
                            .arg(detachedIn(m_registerNames))
                            .arg(detachedIn(m_descriptions))
                            .arg(detachedIn(m_sortNames));
    }

    /// Shares every string of the three objects; a string stops being shared when
    /// the library's own one is destroyed.
    void shareStringsOf(void* library)
    {
        for (int row = 0; row < 13; ++row)
            m_registerNames << find<QString>(library, "REG_LIST")[row];
        for (int element = 0; element < 13 * 5; ++element)
            m_descriptions << find<QString>(library, "REG_DESCRIPTION")[element];
        const QList<QString>& names = find<tarvelan>(library, "driver")->regNames;
        for (int i = 0; i < names.size(); ++i)
            m_sortNames << names.at(i);
    }

    QStringList constructions;
    QStringList destructions;

private:
    QList<QString> m_registerNames;
    QList<QString> m_descriptions;
    QList<QString> m_sortNames;
};

} // namespace

class ObjectLifetimesTest : public QObject
{
    Q_OBJECT

private slots:
    void cataloguesBeforeTheDriverAndInReverse_data();
    void cataloguesBeforeTheDriverAndInReverse();
};

void ObjectLifetimesTest::cataloguesBeforeTheDriverAndInReverse_data()
{
    QTest::addColumn<int>("binding");
    QTest::newRow("names bound at once") << RTLD_NOW;
    QTest::newRow("names bound on first use, after an unload") << RTLD_LAZY;
}

void ObjectLifetimesTest::cataloguesBeforeTheDriverAndInReverse()
{
    QFETCH(int, binding);
    QVERIFY(!dlopen(KX_DRIVER_LIBRARY, RTLD_NOW | RTLD_NOLOAD));
    LifetimeLog log;
    void* const library = dlopen(KX_DRIVER_LIBRARY, binding);
    QVERIFY2(library, dlerror());
    QCOMPARE(log.constructions, QStringList({"REG_LIST", "REG_LIST REG_DESCRIPTION",
                                             "REG_LIST REG_DESCRIPTION driver"}));
    log.shareStringsOf(library);
    QCOMPARE(log.destructions, QStringList());

    QCOMPARE(dlclose(library), 0);
    QVERIFY(!dlopen(KX_DRIVER_LIBRARY, RTLD_NOW | RTLD_NOLOAD));
    QCOMPARE(log.destructions, QStringList({"REG_LIST 0, REG_DESCRIPTION 0, driver 13",
                                            "REG_LIST 0, REG_DESCRIPTION 65, driver 13",
                                            "REG_LIST 13, REG_DESCRIPTION 65, driver 13"}));
}

QTEST_APPLESS_MAIN(ObjectLifetimesTest)
#include "tst_object_lifetimes.moc"
