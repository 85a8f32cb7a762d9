#include "model/random_runtime.h"

void RandomRuntime::appendRecord()
{
    const bool own = m_random.chance(85);
    const int size = m_random.chance(90) ? 1 : m_random.below(40);
    for (int i = 0; i < size; ++i) {
        const _DATA_ area = m_values.dataArea();
        called(QString::fromLatin1("append record ") + shown(area));
        (own ? driver.dataAreas : m_foreign).append(area);
        (own ? m_plain.dataAreas : m_plainForeign).append(area);
    }
}

void RandomRuntime::changeRecord()
{
    if (m_plain.dataAreas.isEmpty())
        return;
    const int index = m_random.below(static_cast<int>(m_plain.dataAreas.size()));
    const _DATA_ content = m_values.dataArea();
    const bool withKey = m_random.chance(40);
    called(QString::fromLatin1(withKey ? "change record %1, key included, to "
                                       : "change record %1 to ")
               .arg(index)
           + shown(content));
    const auto change = [&content, withKey](_DATA_& area) {
        const _DATA_ key = area;
        area = content;
        if (withKey)
            return;
        area.station = key.station;
        area.regType = key.regType;
        area.address = key.address;
    };
    change(driver.dataAreas[index]);
    change(m_plain.dataAreas[index]);
}

void RandomRuntime::rearrangeRecords()
{
    const int choice = m_random.below(4);
    called(QString::fromLatin1("rearrange records in way %1").arg(choice));
    QList<_DATA_> reversed;
    for (int i = static_cast<int>(m_plain.dataAreas.size()) - 1; i >= 0; --i)
        reversed.append(m_plain.dataAreas.at(i));
    driver.dataAreas.clear();
    m_plain.dataAreas.clear();
    for (int i = 0; choice > 0 && i < reversed.size(); ++i) {
        if (choice == 1 && m_random.chance(10))
            continue;
        driver.dataAreas.append(reversed.at(i));
        m_plain.dataAreas.append(reversed.at(i));
    }
}

void RandomRuntime::keepCopy()
{
    const bool restore = m_random.chance(30);
    called(QString::fromLatin1(restore ? "put the copied records back" : "copy the records"));
    if (restore) {
        driver.dataAreas = m_copy;
        m_plain.dataAreas = m_plainCopy;
        return;
    }
    m_copy = driver.dataAreas;
    m_plainCopy = m_plain.dataAreas;
}

void RandomRuntime::changeLists()
{
    const int choice = m_random.below(4);
    called(QString::fromLatin1("empty list %1").arg(choice));
    driver.frameList.clear();
    m_plain.frameList.clear();
    if (choice == 0) {
        driver.writeList.clear();
        m_plain.writeList.clear();
    } else if (choice == 1) {
        driver.condList.clear();
        m_plain.condList.clear();
    } else if (choice == 2) {
        m_foreign.clear();
        m_plainForeign.clear();
    }
}

void RandomRuntime::changeTypeOrder()
{
    QList<QString> names;
    if (m_random.chance(50)) {
        names = PlainDriver().regNames;
    } else {
        const int size = m_random.below(14);
        for (int i = 0; i < size; ++i)
            names.append(m_values.regType());
    }
    called(QString::fromLatin1("order types as ") + QStringList(names).join(QLatin1String(",")));
    driver.regNames = names;
    m_plain.regNames = names;
}
