#include "paletteentry.h"

#include "panels/panel.h"
#include "panels/panelfactory.h"

CPaletteEntry::CPaletteEntry(const QString& type, const QString& name, const QString& value)
    : m_type(type), m_value(value), m_prototype(CPanelFactory::Create(type))
{
    if (m_prototype)
        m_prototype->SetName(name);
}

CPaletteEntry::CPaletteEntry(CPaletteEntry&&) noexcept = default;
CPaletteEntry& CPaletteEntry::operator=(CPaletteEntry&&) noexcept = default;
CPaletteEntry::~CPaletteEntry() = default;

void CPaletteEntry::AddPort(const CPortEntry& port)
{
    if (m_prototype)
        m_prototype->PortList().Add(port);
}

void CPaletteEntry::SetWeight(int weight)
{
    if (m_prototype)
        m_prototype->SetOption(weight);
}
