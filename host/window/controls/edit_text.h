#pragma once
// The text of an edit control with its selection, its limit and its undo: everything that needs no window.
//
// Positions count UTF-16 units from the start of the text. A line break is the pair CR LF; no position that
// these functions hand out lies inside one, nor inside a surrogate pair.
#include <cstddef>
#include <string>
#include <string_view>

namespace host {

class EditText
{
public:
    struct Rules
    {
        bool multiLine = false;               // false: inserted text ends at its first line break
        char16_t (*fold)(char16_t) = nullptr; // applied to every unit that comes in
    };
    /// What became of an insertion.
    struct Outcome
    {
        bool changed; // the text or the selection is different now
        bool cut;     // the limit took something away
    };

    static constexpr size_t kDefaultLimit = 30000;

    /// The most of the first `count` units of a text that splits no line break and no surrogate pair.
    static size_t WholeCharacters(std::u16string_view text, size_t count);

    explicit EditText(Rules rules) : rules_(rules) {}

    const std::u16string& Text() const { return text_; }
    size_t Length() const { return text_.size(); }

    /// Text from the program: the limit does not hold, the caret goes to the start, undo and `modified` are
    /// cleared.
    void Set(std::u16string_view text);

    size_t Limit() const { return limit_; }
    /// Binds what the user and Insert() add from now on; a longer text stays.
    void SetLimit(size_t limit) { limit_ = limit; }

    size_t Start() const { return anchor_ < caret_ ? anchor_ : caret_; }
    size_t End() const { return anchor_ < caret_ ? caret_ : anchor_; }
    size_t Anchor() const { return anchor_; }
    size_t Caret() const { return caret_; }
    bool HasSelection() const { return anchor_ != caret_; }
    std::u16string_view Selected() const;
    /// Positions behind the end mean the end. Returns whether the selection changed.
    bool Select(size_t anchor, size_t caret);

    /// Puts `with` in place of the selection, as much of it as the limit allows, and the caret behind it.
    /// With `undoable` false the undo is forgotten.
    Outcome Insert(std::u16string_view with, bool undoable = true);
    /// The selection, or without one what lies between the caret and `to`.
    Outcome Erase(size_t to);

    bool CanUndo() const { return canUndo_; }
    /// Takes the last change back; a second time it makes it again. The restored text is selected.
    bool Undo();
    void ForgetUndo();

    /// The next and previous place for a caret; the ends stay where they are.
    size_t Next(size_t position) const;
    size_t Previous(size_t position) const;
    /// The start of the next word, or of this word (or the one before when `position` is at its start).
    size_t NextWord(size_t position) const;
    size_t PreviousWord(size_t position) const;

    bool modified = false;

private:
    bool Continues(size_t position, std::u16string_view removed, size_t inserted);
    void Remember(size_t position, std::u16string_view removed, size_t inserted);
    std::u16string Admitted(std::u16string_view text) const;

    Rules rules_;
    std::u16string text_;
    size_t limit_ = kDefaultLimit;
    size_t anchor_ = 0;
    size_t caret_ = 0;
    // Undo: what stands in [undoStart_, undoStart_ + undoInserted_) came in place of undoRemoved_.
    bool canUndo_ = false;
    bool undone_ = false; // what Undo() left is never continued
    size_t undoStart_ = 0;
    size_t undoInserted_ = 0;
    std::u16string undoRemoved_;
};

} // namespace host
