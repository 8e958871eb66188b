#include "segmentdecoderpanel.h"

CSegmentDecoderPanel::CSegmentDecoderPanel(const QString& line)
    : CPanel({.Area = AreaProcess,
              .BitmapId = 10038,
              .Sides = "L",
              .MinTokens = 2,
              .ShowsPorts = false,
              .ShowsComment = false,
              .Keyword = "7S_"})
{
    Init(line);
}

QString CSegmentDecoderPanel::GetPortName(int) const
{
    const QString index = Token(1);
    return index.startsWith(u';') ? QString() : index;
}

int CSegmentDecoderPanel::GetMode() const
{
    return m_variant;
}

void CSegmentDecoderPanel::SetVariant(int variant)
{
    m_variant = variant;
}

bool CSegmentDecoderPanel::SetLine(const QString& line)
{
    CPanel::SetLine(line);
    m_bitmapId = BitmapFor(Token(0));
    return true;
}

int CSegmentDecoderPanel::BitmapFor(const QString& keyword)
{
    static const struct
    {
        const char16_t* Keyword;
        int BitmapId;
    } kPictures[] = {{u"7S_", 10038}, {u"7S4_", 10039}, {u"7S_B", 10041}, {u"7S_D", 10042},
                     {u"7S_S", 262},  {u"7S4_B", 263},  {u"7S4_D", 264},  {u"7S4_S", 265}};
    for (const auto& p : kPictures)
        if (keyword == p.Keyword)
            return p.BitmapId;
    return 10038;
}
