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
    m_bitmapId = BitmapFor(GetKind());
    return true;
}

int CSegmentDecoderPanel::BitmapFor(EPanelKind kind)
{
    // In the order of the decoder kinds, from Decoder to SegmentDecoder4.
    constexpr int kPictures[] = {10038, 10039, 10041, 10042, 262, 263, 264, 265};
    return IsDecoder(kind) ? kPictures[int(kind) - int(EPanelKind::Decoder)] : 10038;
}
