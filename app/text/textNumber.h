// app/text/textNumber.h: the numbers of texts and of help topics. The names of texts are in app/text/textId.h, which
// the build generates from closed/tvlng/names.tsv.
#pragma once

namespace tarvik {

/// Number of a text that is shown with at least `Least` and at most `Most` arguments; 0 is none. A name has the range
/// of its text in the table. A function that fills N placeholders takes a TextNumber<N>, so that a name whose text has
/// fewer, or needs more, does not compile.
template <int Least, int Most = Least>
struct TextNumber {
    int Number = 0;

    constexpr TextNumber() = default;

    /// For a number known only at run time.
    constexpr explicit TextNumber(int number)
        : Number(number)
    {
    }

    template <int OtherLeast, int OtherMost>
    requires(OtherLeast <= Least && Most <= OtherMost) constexpr TextNumber(TextNumber<OtherLeast, OtherMost> other)
        : Number(other.Number)
    {
    }

    constexpr bool IsNone() const
    {
        return Number == 0;
    }

    friend constexpr bool operator==(TextNumber, TextNumber) = default;

    /// The text `index` numbers after `first`, which has the same placeholders.
    friend constexpr TextNumber operator+(TextNumber first, int index)
    {
        return TextNumber(first.Number + index);
    }
};

/// Number of a help topic; 0 is none. A control's topic has the number of its text.
struct TopicNumber {
    int Number = 0;

    constexpr TopicNumber() = default;

    constexpr TopicNumber(int number)
        : Number(number)
    {
    }

    template <int Least, int Most>
    constexpr TopicNumber(TextNumber<Least, Most> text)
        : Number(text.Number)
    {
    }
};

} // namespace tarvik
