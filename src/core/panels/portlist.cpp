#include "portlist.h"

int CPortList::IndexOf(const QString& name) const
{
    for (int i = 0; i < m_entries.size(); ++i)
        if (m_entries[i].Name == name)
            return i;
    return -1;
}

QString CPortList::GetAt(int index) const
{
    return index >= 0 && index < m_entries.size() ? m_entries[index].Name : QString();
}

QString CPortList::GetSingle() const
{
    return m_entries.size() == 1 ? m_entries.front().Name : QString();
}

QString CPortList::DisplayName(const QString& name) const
{
    const int index = IndexOf(name);
    if (index < 0)
        return name;
    const QString& alias = m_entries[index].Alias;
    return alias.isEmpty() || alias == name ? name : name + u'(' + alias + u')';
}
