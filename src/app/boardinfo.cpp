#include "boardinfo.h"

#include "app/messenger.h"
#include "panels/panel.h"
#include "panels/panelvalues.h"
#include "res/stringtable.h"
#include "app/xmldepth.h"

#include <QDir>
#include <QDomDocument>
#include <QFile>

namespace {

// CMDn numbers start at 1. Zero, negative numbers, anything not a number and numbers beyond
// this bound are refused: a typo must not grow the command list to millions of entries.
constexpr int kMaxCommandNumber = 999;

QString BoardFilePath(const QString& folder)
{
    const bool english = CStringTable::GetLanguage() == ELanguage::English;
    return QDir(folder).filePath(english ? QStringLiteral("board_e.xml") : QStringLiteral("board.xml"));
}

QString Attribute(const QDomElement& element, const char* name)
{
    return element.attribute(QString::fromLatin1(name));
}

// The position a numbered command name stands for, or -1 when the name is not allowed.
int CommandPosition(const QString& suffix)
{
    bool ok = false;
    const int number = suffix.toInt(&ok);
    return ok && number >= 1 && number <= kMaxCommandNumber ? number - 1 : -1;
}

} // namespace

bool CBoardInfo::Read(const QString& folder, const QString&, IMessenger& messenger)
{
    *this = CBoardInfo();
    m_folder = folder;
    // Faults of the board file fail the read silently, except this one: a file nested that
    // deep is no slip of the pen, and the user should learn why the board was refused.
    if (const QString path = BoardFilePath(folder); CXmlDepth::Exceeds(path)) {
        messenger.Message(CStringTable::Format(Ids::MsgBoardFileTooDeep,
                                               {QDir::toNativeSeparators(path), CXmlDepth::Limit}),
                          EButtons::Ok, EIcon::Error);
        return false;
    }
    if (!ReadBoardFile())
        return false;
    const QDir dir(folder);
    // The input/output palette comes first; when it fails the process palette is not read.
    return m_inOutPalette.Read(dir.filePath(m_inOutFile), messenger, m_ports) &&
           m_partsPalette.Read(dir.filePath(m_partsFile), messenger, m_ports);
}

bool CBoardInfo::ReadBoardFile()
{
    QFile file(BoardFilePath(m_folder));
    QDomDocument document;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file))
        return false;

    // BOARD must be the very first node inside the document element; not even a comment
    // may stand before it.
    const QDomNode first = document.documentElement().firstChild();
    if (!first.isElement() || first.nodeName() != u"BOARD")
        return false;
    const QDomElement board = first.toElement();
    m_boardName = Attribute(board, "name");

    bool ok = true;
    const QDomNodeList children = board.childNodes();
    for (int i = 0; i < children.size(); ++i) {
        const QDomElement child = children.item(i).toElement();
        const QString tag = child.tagName();
        if (tag == u"INTERFACE")
            m_interfaceName = Attribute(child, "name");
        else if (tag == u"COMPILER")
            ReadCompiler(child, ok);
        else if (tag == u"WRITER")
            ReadWriter(child);
        else if (tag == u"PALETTE")
            ReadPalette(child);
        else if (tag == u"CPU")
            ReadCpu(child);
        else if (tag == u"NETWORK")
            m_network = 1;
        else if (tag == u"SYSTEMCLOCK")
            m_systemClock = LeadingInt(Attribute(child, "value"));
        else if (tag == u"CLOCKSOURCE")
            m_clockSources.append(Attribute(child, "name"));
    }
    return ok;
}

void CBoardInfo::ReadCompiler(const QDomElement& compiler, bool& ok)
{
    const QDomNodeList children = compiler.childNodes();
    for (int i = 0; i < children.size(); ++i) {
        const QDomElement child = children.item(i).toElement();
        const QString tag = child.tagName();
        if (tag == u"DLL") {
            m_compilerDll = Attribute(child, "file");
            m_compilerProc = Attribute(child, "proc");
        } else if (tag == u"PANEL") {
            m_compilerPanel = Attribute(child, "var");
        } else if (tag.startsWith(u"CMD")) {
            const QString command = Attribute(child, "var");
            if (tag.size() == 3) {
                m_commands.append(command);
                continue;
            }
            const int position = CommandPosition(tag.mid(3));
            if (position < 0) {
                ok = false;
                continue;
            }
            while (m_commands.size() <= position)
                m_commands.append(QString());
            m_commands[position] = command;
        }
    }
}

void CBoardInfo::ReadWriter(const QDomElement& writer)
{
    const QDomNodeList children = writer.childNodes();
    for (int i = 0; i < children.size(); ++i) {
        const QDomElement child = children.item(i).toElement();
        const QString tag = child.tagName();
        if (tag == u"DLL")
            continue;
        if (tag.startsWith(u"CMD"))
            m_writerCommand = Attribute(child, "var");
        else if (tag == u"PRM")
            m_writerParam = Attribute(child, "var");
    }
}

void CBoardInfo::ReadPalette(const QDomElement& palette)
{
    const QDomNodeList children = palette.childNodes();
    for (int i = 0; i < children.size(); ++i) {
        const QDomElement child = children.item(i).toElement();
        if (child.tagName() == u"PARTS")
            m_partsFile = Attribute(child, "file");
        else if (child.tagName() == u"INOUT")
            m_inOutFile = Attribute(child, "file");
    }
}

void CBoardInfo::ReadCpu(const QDomElement& cpu)
{
    const QDomNodeList children = cpu.childNodes();
    for (int i = 0; i < children.size(); ++i) {
        const QDomElement child = children.item(i).toElement();
        if (child.tagName() == u"PORT") {
            m_ports.Add(
                {Attribute(child, "id"), Attribute(child, "name"), Attribute(child, "alias")});
        } else if (child.tagName() == u"PWM") {
            m_pwmLowFreq = LeadingInt(Attribute(child, "lowfreq"));
            m_pwmHighFreq = LeadingInt(Attribute(child, "highfreq"));
        }
    }
}

const CPaletteEntry* CBoardInfo::FindEntry(const QString& keyword, int bitmapId) const
{
    const CPaletteEntry* inOut = m_inOutPalette.FindEntry(keyword, bitmapId);
    const CPaletteEntry* parts = m_partsPalette.FindEntry(keyword, bitmapId);
    const auto exact = [bitmapId](const CPaletteEntry* e) {
        return e && e->GetPrototype()->GetBitmapId() == bitmapId;
    };
    if (exact(inOut) || (inOut && !exact(parts)))
        return inOut;
    return parts;
}

QHash<int, int> CBoardInfo::UseLimits() const
{
    QHash<int, int> limits;
    for (const CPaletteInfo* palette : {&m_inOutPalette, &m_partsPalette})
        for (int page = 0; page < palette->GetPageCount(); ++page)
            for (int i = 0; i < palette->GetEntryCount(page); ++i) {
                const CPaletteEntry* entry = palette->GetEntry(page, i);
                if (!entry->GetPrototype() || entry->GetUseLimit() == -1)
                    continue;
                const int type = entry->GetPrototype()->GetBitmapId();
                const auto it = limits.constFind(type);
                if (it == limits.cend() || entry->GetUseLimit() < *it)
                    limits.insert(type, entry->GetUseLimit());
            }
    return limits;
}
