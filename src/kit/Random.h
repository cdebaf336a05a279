#pragma once

#include <QtGlobal>

namespace vorta::kit {

/// Random numbers that are the same on every machine and in every order: each subject (a person, a product) has a
/// sequence of its own.
class Random {
  public:
    Random(quint64 seed, quint64 subject) : state_(seed * 0x9E3779B97F4A7C15u ^ (subject + 1) * 0xD1B54A32D192ED03u) {
        next();
    }
    /// From 0 to `bound` - 1.
    qint64 below(qint64 bound) { return static_cast<qint64>((next() >> 11) % static_cast<quint64>(bound)); }
    /// From `least` to `most`, both included.
    qint64 between(qint64 least, qint64 most) { return least + below(most - least + 1); }
    /// True in so many of a hundred cases.
    bool chance(int percent) { return below(100) < percent; }
    template <typename List>
    const auto& of(const List& list) {
        return list[static_cast<typename List::size_type>(below(static_cast<qint64>(list.size())))];
    }

  private:
    quint64 next() {
        quint64 z = (state_ += 0x9E3779B97F4A7C15u);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }
    quint64 state_;
};

} // namespace vorta::kit
