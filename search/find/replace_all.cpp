#include "search/find/replace_all.h"

#include "search/pattern/pattern_search.h"
#include "search/pattern/word_test.h"

#include <algorithm>
#include <new>
#include <optional>

namespace tarrow {

namespace {

class Sweep {
 public:
  Sweep(CompiledPattern& pattern, std::string_view text, TextRange region, const Replacement& replacement,
        Progress* progress)
      : pattern_(pattern),
        text_(text),
        replacement_(replacement),
        progress_(progress),
        ticker_(progress),
        at_(region.start),
        end_(region.end),
        left_(region.Length()) {
    before_ = CharacterBefore(text_, at_);
  }

  void Run(EditList& edits) {
    do {
      std::optional<TextRange> match = FindNext();
      if (!match) return;
      ticker_.Tick();
      inserted_.clear();
      replacement_.Build(text_, registers_, inserted_);
      edits.Add(*match, inserted_);
      GoOnBehind(*match);
    } while (left_ > 0);
  }

 private:
  std::optional<TextRange> FindNext() {
    if ((repeatsEmpty_ || SeesAnotherStart()) && !SkipsByMap()) {
      std::int32_t length = MatchHere();
      if (length == kMatcherOverflow) return std::nullopt;
      if (length > 0 || (length == 0 && !repeatsEmpty_)) return registers_.Range(0);
      Step(repeatsEmpty_ || pattern_.isForUtf8 ? CharacterLength() : 1);
      if (left_ <= 0) return std::nullopt;
    }
    if (SearchPattern(pattern_, text_, at_, left_, &registers_, progress_, end_) < 0) return std::nullopt;
    return registers_.Range(0);
  }

  // Whether what stands before the place in the new text differs, for an anchor, from what stood there.
  bool SeesAnotherStart() const { return KindOf(before_) != KindOf(CharacterBefore(text_, at_)); }

  enum class Kind { kLineStart, kWord, kOther };

  Kind KindOf(std::string_view character) const {
    if (character.empty() || character == "\n") return Kind::kLineStart;
    bool isWord = pattern_.isForUtf8 ? IsWordInPattern(Utf8In(character, 0).code)
                                     : pattern_.Alphabet().IsWord(character[0]);
    return isWord ? Kind::kWord : Kind::kOther;
  }

  // The bytes of the character before `at`, as the pattern sees characters; none at the start of the text.
  std::string CharacterBefore(TextView text, BytePos at) const {
    if (at == BytePos(0)) return {};
    BytePos start = at - 1;
    if (pattern_.isForUtf8)
      start = WithText(text, [&](const auto& readable) { return BytePos(Utf8Start(readable, start.value)); });
    return text.Copy({start, at});
  }

  // A search does not try a place whose character no match begins with.
  bool SkipsByMap() const {
    if (pattern_.canBeEmpty == CanBeEmpty::kAnywhere || at_ >= text_.End()) return false;
    return !pattern_.firstCharMap[pattern_.Fold()[static_cast<unsigned char>(text_[at_])]];
  }

  // Matches at the place itself, with the character of the new text before it.
  std::int32_t MatchHere() {
    bool hopeless = at_ == text_.End() && pattern_.canBeEmpty == CanBeEmpty::kNever;
    if (hopeless) return kNoMatch;
    std::string_view rest = text_.head.substr(static_cast<std::size_t>(at_.value));
    TextView seen = before_.empty() ? TextView(rest) : TextView(before_, rest);
    BytePos place(static_cast<std::int64_t>(before_.size()));
    std::int32_t length = MatchAt(pattern_, seen, place, place + (end_ - at_), &registers_, progress_);
    if (length >= 0) MoveRegisters(at_ - place);
    return length;
  }

  void MoveRegisters(std::int32_t by) {
    for (int r = 0; r < MatchRegisters::kCount; ++r) {
      if (registers_.start[r] >= 0) registers_.start[r] += by;
      if (registers_.end[r] >= 0) registers_.end[r] += by;
    }
  }

  // Behind the inserted text. Where that was nothing and the pattern has a line start, one character further,
  // or the next blank of a line would be at its start too; elsewhere over a line end, where the next match of
  // a "$" would be the same again.
  void GoOnBehind(TextRange match) {
    if (!inserted_.empty())
      before_ = CharacterBefore(TextView(inserted_), TextView(inserted_).End());
    else if (match.start > at_)
      before_ = CharacterBefore(text_, match.start);
    left_ -= match.end - at_;
    at_ = match.end;
    repeatsEmpty_ = match.Empty();
    if (pattern_.hasLineStart && inserted_.empty()) return Step(CharacterLength());
    if (text_.At(at_) == '\r') Step(1);
    if (text_.At(at_) == '\n') Step(1);
  }

  // At the end of the text one step still leaves it, which ends the sweep.
  std::int32_t CharacterLength() const {
    return std::max(replacement_.CharsetOfText().At(text_, at_).length, 1);
  }

  void Step(std::int32_t bytes) {
    at_ += bytes;
    if (at_ <= text_.End()) before_ = CharacterBefore(text_, at_);
    left_ -= bytes;
    repeatsEmpty_ = false;
  }

  CompiledPattern& pattern_;
  TextView text_;
  const Replacement& replacement_;
  Progress* progress_;
  ProgressTicker ticker_;
  BytePos at_;                 // where the next search begins, in the old text
  BytePos end_;                // of the region
  std::int32_t left_;          // how much of the region is left from there on
  std::string before_;         // the character before it in the new text, nothing at its start
  bool repeatsEmpty_ = false;  // the last match was empty and lies here: another one would go on for ever
  MatchRegisters registers_;
  std::string inserted_;
};

}  // namespace

ReplaceAllResult ReplaceAll(CompiledPattern& pattern, std::string_view text, TextRange region,
                            const Replacement& replacement, Progress* progress) {
  ReplaceAllResult result;
  try {
    Sweep(pattern, text, region, replacement, progress).Run(result.edits);
  } catch (const CMemoryException&) {
    result.outOfMemory = true;
  } catch (const std::bad_alloc&) {
    result.outOfMemory = true;
  }
  return result;
}

}  // namespace tarrow
