#include "boardinfo.h"

#include "folderpath.h"
#include "messenger.h"
#include "panel.h"
#include "panelvalues.h"
#include "stringtable.h"
#include "xmldepth.h"

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QProcess>

namespace {

// CMDn numbers start at 1. Zero, negative numbers, anything not a number and numbers beyond
// this bound are refused: the list keeps only the positions a file names, but a number this
// large is a typo, not a plan.
constexpr int kMaxCommandNumber = 1000000;

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
    m_folder = QDir(folder).absolutePath();
    if (!ReadBoardFile(messenger))
        return false;
    const QDir dir(m_folder);
    // The palettes are named by the board file: they must not lead out of the board folder.
    for (const QString* palette : {&m_inOutFile, &m_partsFile})
        if (!StaysInsideFolder(*palette))
            return Fail(CStringTable::Format(Ids::BoardFileOutside, {m_folder, *palette}));
    // The input/output palette comes first; when it fails the process palette is not read.
    return m_inOutPalette.Read(dir.filePath(m_inOutFile), messenger, m_ports) &&
           m_partsPalette.Read(dir.filePath(m_partsFile), messenger, m_ports);
}

bool CBoardInfo::Fail(const QString& error)
{
    m_error = error;
    return false;
}

bool CBoardInfo::ReadBoardFile(IMessenger& messenger)
{
    const bool english = CStringTable::GetLanguage() == ELanguage::English;
    const QString path = QDir(m_folder).filePath(english ? QStringLiteral("board_e.xml")
                                                         : QStringLiteral("board.xml"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Fail(CStringTable::Format(Ids::BoardFileUnreadable, {path, file.errorString()}));
    const QByteArray bytes = file.readAll();
    // Faults of the board file fail the read without a message, except this one: a file
    // nested that deep is no slip of the pen, and the user should learn why the board was
    // refused.
    if (CXmlDepth::Exceeds(bytes)) {
        const QString error = CStringTable::Format(
            Ids::MsgBoardFileTooDeep, {QDir::toNativeSeparators(path), CXmlDepth::Limit});
        messenger.Message(error, EButtons::Ok, EIcon::Error);
        return Fail(error);
    }
    QDomDocument document;
    QString xmlError;
    int line = 0;
    int column = 0;
    if (!document.setContent(bytes, &xmlError, &line, &column))
        return Fail(CStringTable::Format(Ids::BoardXmlError, {path, line, column, xmlError}));

    // BOARD must be the very first node inside the document element; not even a comment
    // may stand before it.
    const QDomNode first = document.documentElement().firstChild();
    if (!first.isElement() || first.nodeName() != u"BOARD")
        return Fail(CStringTable::Format(Ids::BoardNoBoardElement, {path}));
    const QDomElement board = first.toElement();
    m_boardName = Attribute(board, "name");

    const QDomNodeList children = board.childNodes();
    for (int i = 0; i < children.size(); ++i) {
        const QDomElement child = children.item(i).toElement();
        const QString tag = child.tagName();
        if (tag == u"INTERFACE") {
            m_interfaceName = Attribute(child, "name");
        } else if (tag == u"COMPILER") {
            if (const QString bad = ReadCompiler(child); !bad.isEmpty())
                return Fail(
                    CStringTable::Format(Ids::BoardCommandNumber, {path, bad, kMaxCommandNumber}));
        } else if (tag == u"WRITER")
            ReadWriter(child);
        else if (tag == u"PALETTE")
            ReadPalette(child);
        else if (tag == u"CPU")
            ReadCpu(child);
        else if (tag == u"NETWORK")
            m_network = 1;
        else if (tag == u"SYSTEMCLOCK")
            m_systemClock = LeadingInt(Attribute(child, "value"));
        else if (tag == u"CLOCKSOURCE") {
            m_clockSources.append(Attribute(child, "name"));
            m_clockHz.append(Attribute(child, "hz").toLongLong());
        } else if (tag == u"SIMULATOR")
            ReadSimulation(child);
    }
    return true;
}

QString CBoardInfo::ReadCompiler(const QDomElement& compiler)
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
            const int position = tag.size() == 3 ? GetCommandCount() : CommandPosition(tag.mid(3));
            if (position < 0)
                return tag;
            // An empty command leaves its position out, as a skipped number does.
            m_commands.remove(position);
            m_commandLines.remove(position);
            if (!command.isEmpty()) {
                m_commands.insert(position, command);
                m_commandLines.insert(position, CCommandLine::Split(command));
            }
        }
    }
    return QString();
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
    m_writerCommandLine = CCommandLine::Split(m_writerCommand);
    if (!m_writerCommandLine.IsEmpty())
        m_writerCommandLine.Program = QDir(m_folder).filePath(m_writerCommandLine.Program);
    m_writerParamArguments = QProcess::splitCommand(m_writerParam);
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

void CBoardInfo::ReadSimulation(const QDomElement& simulator)
{
    m_simulation.Mcu = Attribute(simulator, "mcu");
    m_simulation.Uart = Attribute(simulator, "uart");
    m_simulation.Baud = LeadingInt(Attribute(simulator, "baud"));
    m_simulation.Analog = Attribute(simulator, "adc").split(u' ', Qt::SkipEmptyParts);
    // Like every file a board names, the boot loader lies inside its folder.
    const QString boot = Attribute(simulator, "bootloader");
    if (!boot.isEmpty() && StaysInsideFolder(boot))
        m_simulation.BootLoader = QDir(m_folder).filePath(boot);
    m_simulation.BootAddress = Attribute(simulator, "bootat").toUInt(nullptr, 0);
    const QDomElement segments = simulator.firstChildElement(QStringLiteral("SEVENSEG"));
    m_simulation.Segments = Attribute(segments, "segments").split(u' ', Qt::SkipEmptyParts);
    m_simulation.Digits = Attribute(segments, "digits").split(u' ', Qt::SkipEmptyParts);
    m_simulation.DigitSelectHigh = Attribute(segments, "select") == u"high";
    const QDomElement lcd = simulator.firstChildElement(QStringLiteral("LCD"));
    const QDomNamedNodeMap pins = lcd.attributes();
    for (int i = 0; i < pins.size(); ++i)
        m_simulation.Lcd.insert(pins.item(i).nodeName().toUpper(), pins.item(i).nodeValue());
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
