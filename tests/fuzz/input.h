// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>

/// Turns the fuzzer's bytes into values. Once they run out it goes on with numbers that follow from them, as long as
/// its user likes: short inputs are quick to change, and still fill a long run.
class Input
{
public:
    Input(const std::uint8_t* data, std::size_t size) : m_data(data), m_left(size)
    {
        for (std::size_t i = 0; i < size; ++i) {
            m_state = (m_state ^ data[i]) * 0x100000001B3U;
        }
    }

    bool IsEmpty() const { return m_left == 0; }

    std::uint32_t Byte()
    {
        if (m_left == 0) {
            return static_cast<std::uint32_t>(Random() >> 56);
        }
        --m_left;
        return *m_data++;
    }
    /// 0 to 1.
    double Fraction() { return Byte() / 255.0; }
    /// 0 to count - 1.
    std::uint32_t Below(std::size_t count)
    {
        const std::uint32_t value = count <= 256 ? Byte() : Byte() << 8 | Byte();
        return value % static_cast<std::uint32_t>(count);
    }
    bool OneIn(std::size_t count) { return Below(count) == 0; }
    long Between(long least, long most)
    {
        return least + static_cast<long>(Below(static_cast<std::size_t>(most - least) + 1));
    }
    std::uint32_t Word() { return Byte() << 24 | Byte() << 16 | Byte() << 8 | Byte(); }

    /// Usually small, now and then an extreme.
    long Number(long usual)
    {
        static constexpr long kExtremes[] = {0,
                                             -1,
                                             std::numeric_limits<std::int32_t>::max(),
                                             std::numeric_limits<std::int32_t>::min(),
                                             std::numeric_limits<std::int32_t>::max() - 1L,
                                             std::numeric_limits<std::int32_t>::min() + 1L,
                                             std::numeric_limits<long>::max(),
                                             std::numeric_limits<long>::min(),
                                             65535,
                                             65536,
                                             -32768};
        if (OneIn(12)) {
            return kExtremes[Below(std::size(kExtremes))];
        }
        return Between(-1, usual);
    }
    int Int(long usual) { return static_cast<int>(Number(usual)); }

    /// Usually within the range, now and then no number at all or one that is out of any range.
    double Real(double least, double most)
    {
        static constexpr double kExtremes[] = {std::numeric_limits<double>::quiet_NaN(),
                                               std::numeric_limits<double>::infinity(),
                                               -std::numeric_limits<double>::infinity(),
                                               1e300,
                                               -1e300,
                                               std::numeric_limits<double>::denorm_min(),
                                               2147483647.0,
                                               -2147483649.0,
                                               4294967296.0,
                                               -0.0};
        if (OneIn(24)) {
            return kExtremes[Below(std::size(kExtremes))];
        }
        return least + (most - least) * Fraction();
    }

private:
    std::uint64_t Random()
    {
        m_state += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = m_state;
        mixed = (mixed ^ mixed >> 30) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EBU;
        return mixed ^ mixed >> 31;
    }

    const std::uint8_t* m_data;
    std::size_t m_left;
    std::uint64_t m_state = 0xCBF29CE484222325U;
};
