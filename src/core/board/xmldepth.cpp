#include "xmldepth.h"

#include <QByteArrayView>
#include <QXmlStreamReader>

namespace {

// The scan runs before every parse of a board folder's files, so it looks at the bytes
// rather than parsing them a second time: it needs only the tags, and it skips what may
// hold a "<" that opens none (comments, CDATA, processing instructions, declarations and
// quoted attribute values). A file that is not ASCII-compatible, as UTF-16 is, has NUL
// bytes and is left to the stream reader.
class CByteScan
{
  public:
    explicit CByteScan(QByteArrayView bytes) : m_bytes(bytes) {}

    bool Exceeds(int limit)
    {
        int depth = 0;
        while ((m_at = m_bytes.indexOf('<', m_at)) >= 0) {
            ++m_at;
            if (Skip("!--", "-->") || Skip("![CDATA[", "]]>") || Skip("?", "?>"))
                continue;
            if (At('!')) {
                SkipDeclaration();
                continue;
            }
            const bool closing = At('/');
            const qsizetype end = TagEnd();
            if (end < 0)
                return false;
            if (closing)
                --depth;
            else if (m_bytes[end - 1] != '/' && ++depth > limit)
                return true;
            m_at = end + 1;
        }
        return false;
    }

  private:
    bool At(char c) const { return m_at < m_bytes.size() && m_bytes[m_at] == c; }

    // Past the end mark when the markup at m_at opens with `open`; at the end of the bytes
    // when the mark is missing.
    bool Skip(const char* open, const char* close)
    {
        if (!m_bytes.sliced(m_at).startsWith(open))
            return false;
        const qsizetype end = m_bytes.indexOf(close, m_at + qstrlen(open));
        m_at = end < 0 ? m_bytes.size() : end + qstrlen(close);
        return true;
    }

    // The ">" that ends the tag at m_at, over quoted attribute values; -1 when none does.
    qsizetype TagEnd() const
    {
        char quote = 0;
        for (qsizetype i = m_at; i < m_bytes.size(); ++i) {
            const char c = m_bytes[i];
            if (quote)
                quote = c == quote ? 0 : quote;
            else if (c == '"' || c == '\'')
                quote = c;
            else if (c == '>')
                return i;
        }
        return -1;
    }

    // A DOCTYPE with its internal subset in brackets, whose declarations may hold quoted
    // texts and comments.
    void SkipDeclaration()
    {
        int brackets = 0;
        char quote = 0;
        while (m_at < m_bytes.size()) {
            const char c = m_bytes[m_at];
            if (quote) {
                quote = c == quote ? 0 : quote;
            } else if (c == '<' && Skip("<!--", "-->")) {
                continue;
            } else if (c == '"' || c == '\'') {
                quote = c;
            } else if (c == '[') {
                ++brackets;
            } else if (c == ']') {
                --brackets;
            } else if (c == '>' && brackets <= 0) {
                ++m_at;
                return;
            }
            ++m_at;
        }
    }

    QByteArrayView m_bytes;
    qsizetype m_at = 0;
};

bool StreamExceeds(const QByteArray& bytes, int limit)
{
    QXmlStreamReader reader(bytes);
    int depth = 0;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            if (++depth > limit)
                return true;
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            break;
        default:
            break;
        }
    }
    return false;
}

} // namespace

bool CXmlDepth::Exceeds(const QByteArray& bytes)
{
    return bytes.contains('\0') ? StreamExceeds(bytes, Limit) : CByteScan(bytes).Exceeds(Limit);
}
