#include "host/window/controls/edit_text.h"

#include <algorithm>

namespace host {
namespace {

bool IsHighSurrogate(char16_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLowSurrogate(char16_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

bool BelongTogether(char16_t first, char16_t second)
{
    return (first == u'\r' && second == u'\n') || (IsHighSurrogate(first) && IsLowSurrogate(second));
}

bool IsBlank(char16_t unit)
{
    return unit == u' ' || unit == u'\t' || unit == u'\r' || unit == u'\n' || unit == 0x3000;
}

} // namespace

size_t EditText::WholeCharacters(std::u16string_view text, size_t count)
{
    if (count >= text.size())
        return text.size();
    return count > 0 && BelongTogether(text[count - 1], text[count]) ? count - 1 : count;
}

std::u16string EditText::Admitted(std::u16string_view text) const
{
    std::u16string admitted(text);
    if (rules_.fold != nullptr)
        std::transform(admitted.begin(), admitted.end(), admitted.begin(), rules_.fold);
    return admitted;
}

void EditText::Set(std::u16string_view text)
{
    text_ = Admitted(text);
    anchor_ = caret_ = 0;
    modified = false;
    ForgetUndo();
}

std::u16string_view EditText::Selected() const
{
    return std::u16string_view(text_).substr(Start(), End() - Start());
}

bool EditText::Select(size_t anchor, size_t caret)
{
    anchor = std::min(anchor, text_.size());
    caret = std::min(caret, text_.size());
    const bool changed = anchor != anchor_ || caret != caret_;
    anchor_ = anchor;
    caret_ = caret;
    return changed;
}

EditText::Outcome EditText::Insert(std::u16string_view with, bool undoable)
{
    if (!rules_.multiLine)
        with = with.substr(0, with.find_first_of(u"\r\n"));
    const size_t kept = text_.size() - (End() - Start());
    const size_t room = limit_ > kept ? limit_ - kept : 0;
    const bool cut = with.size() > room;
    with = with.substr(0, WholeCharacters(with, room));
    if (with.empty() && !HasSelection())
        return {false, cut};
    const std::u16string added = Admitted(with);
    const size_t start = Start();
    if (undoable)
        Remember(start, Selected(), added.size());
    else
        ForgetUndo();
    text_.replace(start, End() - start, added);
    anchor_ = caret_ = start + added.size();
    modified = true;
    return {true, cut};
}

EditText::Outcome EditText::Erase(size_t to)
{
    if (!HasSelection())
        Select(to, caret_);
    return Insert({}, true);
}

/// Typing on, and deleting on in either direction, stays one change.
bool EditText::Continues(size_t position, std::u16string_view removed, size_t inserted)
{
    const size_t undoEnd = undoStart_ + undoInserted_;
    if (removed.empty() && position == undoEnd) {
        undoInserted_ += inserted;
        return true;
    }
    if (inserted != 0)
        return false;
    if (undoInserted_ >= removed.size() && position + removed.size() == undoEnd) {
        undoInserted_ -= removed.size();
        return true;
    }
    if (undoInserted_ == 0 && position + removed.size() == undoStart_) {
        undoRemoved_.insert(0, removed);
        undoStart_ = position;
        return true;
    }
    if (undoInserted_ == 0 && position == undoStart_) {
        undoRemoved_ += removed;
        return true;
    }
    return false;
}

void EditText::Remember(size_t position, std::u16string_view removed, size_t inserted)
{
    if (!canUndo_ || undone_ || !Continues(position, removed, inserted)) {
        undoStart_ = position;
        undoInserted_ = inserted;
        undoRemoved_ = removed;
    }
    undone_ = false;
    canUndo_ = undoInserted_ != 0 || !undoRemoved_.empty();
}

bool EditText::Undo()
{
    if (!canUndo_)
        return false;
    const std::u16string taken = text_.substr(undoStart_, undoInserted_);
    text_.replace(undoStart_, undoInserted_, undoRemoved_);
    anchor_ = undoStart_;
    caret_ = undoStart_ + undoRemoved_.size();
    undoInserted_ = undoRemoved_.size();
    undoRemoved_ = taken;
    undone_ = true;
    modified = true;
    return true;
}

void EditText::ForgetUndo()
{
    canUndo_ = undone_ = false;
    undoStart_ = undoInserted_ = 0;
    undoRemoved_.clear();
}

size_t EditText::Next(size_t position) const
{
    if (position >= text_.size())
        return text_.size();
    const bool pair = position + 1 < text_.size() && BelongTogether(text_[position], text_[position + 1]);
    return position + (pair ? 2 : 1);
}

size_t EditText::Previous(size_t position) const
{
    if (position == 0)
        return 0;
    const bool pair = position >= 2 && BelongTogether(text_[position - 2], text_[position - 1]);
    return position - (pair ? 2 : 1);
}

size_t EditText::NextWord(size_t position) const
{
    while (position < text_.size() && !IsBlank(text_[position]))
        ++position;
    while (position < text_.size() && IsBlank(text_[position]))
        ++position;
    return position;
}

size_t EditText::PreviousWord(size_t position) const
{
    while (position > 0 && IsBlank(text_[position - 1]))
        --position;
    while (position > 0 && !IsBlank(text_[position - 1]))
        --position;
    return position;
}

} // namespace host
