// SPDX-License-Identifier: MIT
#pragma once
// A small pseudo-random source whose sequence is fixed by its seed on every
// platform and standard library (std:: distributions are not), so that a
// catalogue generated twice from one seed is the same byte for byte.

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarn::vyxpn::gen {

class RandomSource {
  public:
    explicit RandomSource(std::uint64_t seed) : m_state(seed) {}
    // An independent stream for one part of the catalogue (a family, the
    // shared files), so that each part does not depend on the others' draws.
    RandomSource fork(std::uint64_t stream) const {
        return RandomSource(mix(m_state ^ mix(stream + 0x51ed270b27d1b3a5ULL)));
    }

    std::uint64_t next() {
        m_state += 0x9e3779b97f4a7c15ULL;
        return mix(m_state);
    }
    // Uniform in [low, high] (both included).
    int between(int low, int high) {
        const auto span = static_cast<std::uint64_t>(high - low) + 1;
        return low + static_cast<int>(next() % span);
    }
    // True with the given chance in percent.
    bool percent(int chance) { return between(0, 99) < chance; }
    double unit() { return static_cast<double>(next() >> 11) * (1.0 / 9007199254740992.0); }

    template <typename T>
    const T& pick(const std::vector<T>& items) {
        return items[static_cast<std::size_t>(next() % items.size())];
    }

  private:
    static std::uint64_t mix(std::uint64_t z) {
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
        return z ^ (z >> 31);
    }
    std::uint64_t m_state;
};

}  // namespace tarn::vyxpn::gen
