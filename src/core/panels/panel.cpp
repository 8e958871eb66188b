#include "panel.h"

#include "panelfactory.h"
#include "stringtable.h"

namespace {

bool IsComment(const QString& token)
{
    return token.startsWith(u';');
}

} // namespace

CPanel::CPanel(const CPanelDefaults& d)
    : m_area(d.Area), m_bitmapId(d.BitmapId), m_minTokens(d.MinTokens),
      m_sides(QString::fromLatin1(d.Sides)), m_showsPorts(d.ShowsPorts),
      m_showsComment(d.ShowsComment), m_fixedTokens(d.FixedTokens), m_portToken(d.PortToken)
{
    if (d.Keyword)
        m_tokens.append(QString::fromLatin1(d.Keyword));
}

CPanel::~CPanel() = default;

void CPanel::Init(const QString& line)
{
    if (!line.isEmpty())
        SetLine(line);
}

QString CPanel::GetCaption() const
{
    if (m_captionStale) {
        // Building the caption is no change of the panel's state.
        const_cast<CPanel*>(this)->UpdateCaption();
        m_captionStale = false;
    }
    return m_caption;
}

QString CPanel::GetPortName(int i) const
{
    const QString token = Token(i + 2);
    return m_showsPorts && !IsComment(token) ? token : QString();
}

QString CPanel::GetComment(int) const
{
    return m_showsComment ? m_comment : QString();
}

bool CPanel::Rotate()
{
    return false;
}

EPanelKind CPanel::GetKind() const
{
    return m_tokens.isEmpty() ? EPanelKind::None : CPanelFactory::KindOf(m_tokens.first());
}

int CPanel::GetMode() const
{
    return 0;
}

QString CPanel::GetPortText() const
{
    return m_portList.GetSingle();
}

QString CPanel::GetSides() const
{
    return m_sides;
}

bool CPanel::IsIncomplete() const
{
    if (!m_needsProperties)
        return false;
    if (ArgumentCount() < m_minTokens)
        return true;
    if (m_portList.GetCount() == 0 || m_portToken < 0)
        return false;
    return m_portIndex < 0;
}

bool CPanel::MakeImage(CPanelImage& image)
{
    if (m_area == AreaProcess) {
        image.Reset(32, 32);
        image.Add(m_bitmapId, QString(), GetPortName(0), GetComment(0));
        return true;
    }
    if (m_area != AreaInput && m_area != AreaOutput)
        return false;

    // Side-column panels are a column of strips with a distinct top and bottom.
    const bool input = m_area == AreaInput;
    const int single = input ? 10070 : 10079, top = input ? 10071 : 10080,
              middle = input ? 10072 : 10081, bottom = input ? 10073 : 10082,
              fallback = input ? 218 : 219;
    image.Reset(64, 32);
    if (m_itemCount < 0) {
        m_itemCount = 1;
        image.Add(fallback, m_name, GetPortName(0), GetComment(0));
        return true;
    }
    for (int i = 0; i < qMax(m_itemCount, 1); ++i) {
        const int id = m_itemCount <= 1       ? single
                       : i == 0               ? top
                       : i == m_itemCount - 1 ? bottom
                                              : middle;
        image.Add(id, m_name, GetPortName(i), GetComment(i));
    }
    return true;
}

void CPanel::SetVariant(int) {}

bool CPanel::SetLine(const QString& line)
{
    m_text = line;
    m_tokens = SplitLine(line);
    RecountItems();
    if (EndsWithComment())
        m_comment = m_tokens.last().mid(1);
    ResolvePort();
    InvalidateCaption();
    return true;
}

QString CPanel::GetLine() const
{
    return JoinLine(m_tokens);
}

bool CPanel::EditProperties(IPropertyEditor&)
{
    return false;
}

void CPanel::UpdateCaption()
{
    m_caption = m_name;
}

void CPanel::AcceptProperties(const QStringList& tokens, int)
{
    m_tokens = tokens;
    InvalidateCaption();
}

void CPanel::SetName(const QString& name)
{
    m_name = name;
    InvalidateCaption();
}

QString CPanel::GetTrailingComment() const
{
    return m_tokens.size() >= 2 ? CommentName() : QString();
}

void CPanel::RecountItems()
{
    if (m_fixedTokens >= 1)
        m_itemCount = qMax(1, ArgumentCount() - m_fixedTokens);
    else
        m_itemCount = 1;
}

void CPanel::ResolvePort()
{
    if (m_portToken >= 0 && m_tokens.size() > m_portToken)
        m_portIndex = m_portList.IndexOf(m_tokens[m_portToken]);
}

void CPanel::CopyFrom(const CPanel& other)
{
    m_bitmapId = other.m_bitmapId;
    // The ports come first so that the copy finds its port and its caption shows it as
    // the source's does.
    m_portList = other.m_portList;
    ResolvePort();
    SetName(other.m_name);
    m_itemCount = other.m_itemCount;
    m_weight = other.m_weight;
    m_variant = other.m_variant;
}

QString CPanel::JoinLine(const QStringList& tokens)
{
    if (tokens.isEmpty())
        return QString();
    // Every save writes every panel's line, so the line is allocated once: the tokens, a
    // separator behind each, the keyword's padding and the comment's second TAB.
    qsizetype length = 4 + 1;
    for (const QString& token : tokens)
        length += token.size() + 1;
    QString line;
    line.reserve(length);
    line += tokens.front();
    while (line.size() < 4)
        line += u' ';
    if (tokens.size() > 1)
        line += u'\t';
    for (qsizetype i = 1; i < tokens.size(); ++i) {
        if (IsComment(tokens[i])) {
            line += u"\t\t";
            line += tokens[i];
            break; // nothing is written after the comment
        }
        if (i > 1)
            line += u',';
        line += tokens[i];
    }
    return line;
}

QStringList CPanel::SplitLine(const QString& line)
{
    // The keyword also ends at a blank; arguments only at "," or TAB, so blanks inside an
    // argument survive.
    QStringList tokens;
    // The line ends at a NUL, as its keyword does.
    const QStringView text = QStringView(line).left(line.indexOf(QChar(0)));
    qsizetype start = 0;
    for (qsizetype i = 0; i <= text.size(); ++i) {
        const bool atEnd = i == text.size();
        bool delimiter = atEnd || text[i] == u',' || text[i] == u'\t';
        if (!delimiter && tokens.isEmpty() && text[i] == u' ')
            delimiter = !text.mid(start, i - start).trimmed().isEmpty();
        if (!delimiter)
            continue;
        if (const QStringView token = text.mid(start, i - start).trimmed(); !token.isEmpty())
            tokens.append(token.toString());
        start = i + 1;
    }
    return tokens;
}

void CPanel::SetToken(int index, const QString& value)
{
    while (m_tokens.size() <= index)
        m_tokens.append(QString());
    m_tokens[index] = value;
}

QString CPanel::CommentName() const
{
    return EndsWithComment() ? m_tokens.last().mid(1) : QString();
}

int CPanel::ArgumentCount() const
{
    return int(m_tokens.size()) - (EndsWithComment() ? 1 : 0);
}

int CPanel::TokensBeforeComment() const
{
    int count = 1;
    while (count < TokenCount() && !IsComment(m_tokens[count]))
        ++count;
    return qMin(count, TokenCount());
}

bool CPanel::EndsWithComment() const
{
    return !m_tokens.isEmpty() && IsComment(m_tokens.last());
}

void CPanel::SetCaptionParts(std::initializer_list<QString> parts)
{
    m_caption.clear();
    m_caption.reserve(m_name.size() + 40);
    m_caption += m_name;
    m_caption += QLatin1String(" : ");
    for (const QString& part : parts)
        if (!part.isEmpty()) {
            m_caption += part;
            m_caption += QLatin1String("  ");
        }
}

QString CPanel::PortProperty(const QString& port) const
{
    return port.isEmpty() ? QString()
                          : CStringTable::Format(Ids::PortFormat, {m_portList.DisplayName(port)});
}
