#include "avrwave.h"

#include <algorithm>
#include <cmath>
#include <vector>

std::optional<CAvrWave> CAvrWave::For(int timer, long clock, int frequency)
{
    if (frequency <= 0 || (timer != 1 && timer != 2))
        return std::nullopt;
    const std::vector<int> dividers = timer == 1 ? std::vector<int>{1, 8, 64, 256, 1024}
                                                 : std::vector<int>{1, 8, 32, 64, 128, 256, 1024};
    const long counts = timer == 1 ? 65536 : 256;
    for (std::size_t i = 0; i < dividers.size(); ++i) {
        const long period = std::lround(double(clock) / (double(dividers[i]) * frequency));
        if (period > counts)
            continue;
        // Below four counts there is no duty left to choose.
        if (period < 4)
            return std::nullopt;
        CAvrWave wave;
        wave.m_prescale = int(i) + 1;
        wave.m_top = int(period - 1);
        return wave;
    }
    return std::nullopt;
}

int CAvrWave::Level(int percent) const
{
    if (percent <= 0)
        return 0;
    if (percent >= 100)
        return m_top + 1;
    const long level = std::lround(double(m_top + 1) * percent / 100.0);
    return int(std::clamp(level, 1L, long(m_top)));
}

QString CAvrWave::Arguments(int percent) const
{
    return QStringLiteral("%1, %2, %3").arg(m_prescale).arg(m_top).arg(Level(percent));
}
