#pragma once

#include <QRandomGenerator>

#include <initializer_list>

/// What rules a random session: the same seeds give the same answers.
class Chance
{
public:
    explicit Chance(const unsigned& seed)
        : random(seed)
    {}

    /// A part of a session has seeds of its own, so that it stays as it is when others are left
    /// out.
    Chance(const unsigned& seed, const unsigned& part)
    {
        const quint32 both[] = {seed, part};
        random = QRandomGenerator(both);
    }

    bool chance(const int& percent) { return random.bounded(100) < percent; }
    int below(const qsizetype& count) { return random.bounded(static_cast<int>(count)); }

    /// Half steps of a small grid, so that keys often meet: most of them at a few times, where they
    /// make hard cuts of two keys and more.
    double number() { return chance(50) ? random.bounded(5) * 5.0 : random.bounded(41) * 0.5; }
    double offset()
    {
        return chance(50) ? random.bounded(-2, 3) * 5.0 : random.bounded(-8, 9) * 0.5;
    }

    template <typename List>
    const typename List::value_type& oneOf(const List& list)
    {
        return list[below(list.size())];
    }

    template <typename T>
    T oneOf(std::initializer_list<T> list)
    {
        return *(list.begin() + below(static_cast<qsizetype>(list.size())));
    }

private:
    QRandomGenerator random;
};
