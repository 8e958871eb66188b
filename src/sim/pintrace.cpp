#include "pintrace.h"

#include <algorithm>

void CPinTrace::Record(std::uint64_t cycle, bool high)
{
    if (high == m_level)
        return;
    m_level = high;
    m_changes.push_back({cycle, high});
}

bool CPinTrace::LevelAt(std::uint64_t cycle) const
{
    // The last change at or before the cycle decides.
    const auto after = std::upper_bound(
        m_changes.begin(), m_changes.end(), cycle,
        [](std::uint64_t c, const CPinChange& change) { return c < change.Cycle; });
    return after == m_changes.begin() ? false : std::prev(after)->High;
}

void CPinTrace::ForgetBefore(std::uint64_t cycle)
{
    const auto kept = std::lower_bound(
        m_changes.begin(), m_changes.end(), cycle,
        [](const CPinChange& change, std::uint64_t c) { return change.Cycle < c; });
    // The last change before the cycle stays: it gives the level there.
    if (kept - m_changes.begin() > 1)
        m_changes.erase(m_changes.begin(), kept - 1);
}

std::optional<std::uint64_t> CPinTrace::LastChange() const
{
    if (m_changes.empty())
        return std::nullopt;
    return m_changes.back().Cycle;
}

int CPinTrace::Pulses(std::uint64_t from, std::uint64_t to) const
{
    return int(std::count_if(m_changes.begin(), m_changes.end(), [&](const CPinChange& change) {
        return change.High && change.Cycle >= from && change.Cycle < to;
    }));
}

double CPinTrace::Duty(std::uint64_t from, std::uint64_t to) const
{
    if (to <= from)
        return 0.0;
    std::uint64_t high = 0;
    std::uint64_t at = from;
    bool level = LevelAt(from);
    for (const CPinChange& change : m_changes) {
        if (change.Cycle <= from)
            continue;
        if (change.Cycle >= to)
            break;
        if (level)
            high += change.Cycle - at;
        at = change.Cycle;
        level = change.High;
    }
    if (level)
        high += to - at;
    return double(high) / double(to - from);
}

double CPinTrace::Frequency(std::uint64_t from, std::uint64_t to, double clockHz) const
{
    std::optional<std::uint64_t> first;
    std::uint64_t last = 0;
    int rises = 0;
    for (const CPinChange& change : m_changes) {
        if (!change.High || change.Cycle < from || change.Cycle >= to)
            continue;
        if (!first)
            first = change.Cycle;
        last = change.Cycle;
        ++rises;
    }
    if (rises < 2 || last == *first)
        return 0.0;
    return (rises - 1) * clockHz / double(last - *first);
}
