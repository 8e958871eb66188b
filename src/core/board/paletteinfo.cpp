#include "paletteinfo.h"

#include "messenger.h"
#include "panel.h"
#include "panelvalues.h"
#include "portlist.h"
#include "stringtable.h"
#include "xmldepth.h"

#include <QDir>
#include <QDomDocument>
#include <QFile>

namespace {

CPaletteEntry ReadEntry(const QDomElement& panel, const CPortList& boardPorts)
{
    CPaletteEntry entry(panel.attribute(QStringLiteral("type")),
                        panel.attribute(QStringLiteral("name")),
                        panel.attribute(QStringLiteral("value")));
    const QDomNodeList children = panel.childNodes();
    for (int i = 0; i < children.size(); ++i) {
        const QDomElement child = children.item(i).toElement();
        const QString tag = child.tagName();
        if (tag == u"PORT") {
            const QString name = child.attribute(QStringLiteral("name"));
            const int row = boardPorts.IndexOf(name);
            entry.AddPort({child.attribute(QStringLiteral("id")), name,
                           row < 0 ? QString() : boardPorts.GetEntry(row).Alias});
        } else if (tag == u"USELIMIT") {
            entry.SetUseLimit(LeadingInt(child.attribute(QStringLiteral("value"))));
        } else if (tag == u"WEIGHT") {
            entry.SetWeight(LeadingInt(child.attribute(QStringLiteral("value"))));
        }
    }
    return entry;
}

} // namespace

bool CPaletteInfo::Read(const QString& path, IMessenger& messenger, const CPortList& boardPorts)
{
    Clear();
    QFile file(path);
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (CXmlDepth::Exceeds(bytes)) {
        messenger.Message(CStringTable::Format(Ids::MsgPanelDefinitionTooDeep,
                                               {QDir::toNativeSeparators(path), CXmlDepth::Limit}),
                          EButtons::Ok, EIcon::Error);
        return false;
    }
    QDomDocument document;
    if (!file.isOpen() || !document.setContent(bytes) || document.documentElement().isNull()) {
        messenger.Message(CStringTable::Get(Ids::MsgPanelDefinitionError), EButtons::Ok,
                          EIcon::Error);
        return false;
    }

    const QDomNodeList pages = document.documentElement().childNodes();
    for (int p = 0; p < pages.size(); ++p) {
        const QDomElement page = pages.item(p).toElement();
        if (page.tagName() != u"PALETTE")
            continue;
        m_titles.append(page.attribute(QStringLiteral("name")));
        std::vector<CPaletteEntry>& entries = m_pages.emplace_back();
        const QDomNodeList panels = page.childNodes();
        for (int i = 0; i < panels.size(); ++i) {
            const QDomElement panel = panels.item(i).toElement();
            if (panel.tagName() != u"PANEL")
                continue;
            entries.push_back(ReadEntry(panel, boardPorts));
            const CPanel* prototype = entries.back().GetPrototype();
            if (prototype && !prototype->GetTokens().isEmpty())
                m_places[prototype->GetTokens().front()].emplace_back(int(m_pages.size()) - 1,
                                                                      int(entries.size()) - 1);
        }
    }
    return true;
}

void CPaletteInfo::Clear()
{
    m_titles.clear();
    m_pages.clear();
    m_places.clear();
}

int CPaletteInfo::GetEntryCount(int page) const
{
    return page >= 0 && page < int(m_pages.size()) ? int(m_pages[page].size()) : 0;
}

const CPaletteEntry* CPaletteInfo::GetEntry(int page, int entry) const
{
    if (entry < 0 || entry >= GetEntryCount(page))
        return nullptr;
    return &m_pages[page][entry];
}

const CPaletteEntry* CPaletteInfo::FindEntry(const QString& keyword, int bitmapId) const
{
    const auto places = m_places.constFind(keyword);
    if (places == m_places.cend())
        return nullptr;
    for (const auto& [page, entry] : *places)
        if (m_pages[page][entry].GetPrototype()->GetBitmapId() == bitmapId)
            return &m_pages[page][entry];
    const auto& [page, entry] = places->front();
    return &m_pages[page][entry];
}
