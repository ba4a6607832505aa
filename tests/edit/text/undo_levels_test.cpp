#include "tests/edit/text/text_model.h"

namespace tarrow {
namespace {

// What undo is, in the plainest words: a row of texts, and which of them is the one now.
class UndoModel {
 public:
  UndoModel(std::string text, int levels)
      : texts_{std::move(text)}, levels_(static_cast<std::size_t>(levels)) {}

  const std::string& Text() const { return texts_[now_]; }
  bool CanUndo() const { return now_ > 0; }
  bool CanRedo() const { return now_ + 1 < texts_.size(); }
  bool IsSaved() const { return saved_ == static_cast<std::int64_t>(now_); }
  void Undo() { --now_, last_.reset(); }
  void Redo() { ++now_, last_.reset(); }
  void EndUnit() { last_.reset(); }
  void MarkSaved() { saved_ = static_cast<std::int64_t>(now_), last_.reset(); }

  void Replace(TextRange range, const std::string& text, EditKind kind) {
    std::string changed = Text();
    changed.replace(static_cast<std::size_t>(range.start.value), static_cast<std::size_t>(range.Length()),
                    text);
    if (Joins(range, text, kind)) {
      texts_[now_] = changed;
      if (range.end == last_->at) last_->at = range.start;
    } else {
      Push(changed);
      last_ = {kind, range.start, text.empty(), {}};
    }
    last_->end = range.start + static_cast<std::int64_t>(text.size());
    if (text.find('\n') != text.npos) last_.reset();
  }

  void Push(const std::string& text) {
    texts_.resize(now_ + 1);
    if (saved_ > static_cast<std::int64_t>(now_)) saved_ = -1;
    texts_.push_back(text);
    ++now_;
    last_.reset();
    if (now_ <= levels_) return;
    texts_.erase(texts_.begin());
    --now_;
    if (saved_ >= 0) --saved_;
  }

 private:
  struct Last {
    EditKind kind;
    BytePos at;
    bool isDeletion;
    BytePos end;
  };

  bool Joins(TextRange range, const std::string& text, EditKind kind) const {
    if (!last_ || last_->kind != kind) return false;
    if (kind == EditKind::kTyping) return range.start == last_->end;
    if (kind != EditKind::kDeleting || !text.empty() || !last_->isDeletion) return false;
    return range.start == last_->at || range.end == last_->at;
  }

  std::vector<std::string> texts_;
  std::size_t levels_, now_ = 0;
  std::int64_t saved_ = -1;
  std::optional<Last> last_;
};

class UndoWalk {
 public:
  UndoWalk(std::mt19937& random, int levels)
      : random_(random), text_(RandomText(random, 40)), model_(text_, levels), buffer_(BufferOf(text_)) {
    buffer_.SetUndoLevels(levels);
  }

  void Step() {
    switch (random_() % 12) {
      case 0:
        return List();
      case 1:
        ASSERT_EQ(buffer_.UndoLast().has_value(), model_.CanUndo());
        return void(model_.CanUndo() ? model_.Undo() : void());
      case 2:
        ASSERT_EQ(buffer_.RedoNext().has_value(), model_.CanRedo());
        return void(model_.CanRedo() ? model_.Redo() : void());
      case 3:
        buffer_.EndUndoUnit();
        return model_.EndUnit();
      case 4:
        if (random_() % 4) return;
        buffer_.MarkSaved();
        return model_.MarkSaved();
      default:
        return Change();
    }
  }

  void Check() const {
    ASSERT_NO_FATAL_FAILURE(ExpectIs(buffer_, model_.Text()));
    ASSERT_EQ(buffer_.CanUndo(), model_.CanUndo());
    ASSERT_EQ(buffer_.CanRedo(), model_.CanRedo());
    ASSERT_EQ(buffer_.IsSaved(), model_.IsSaved());
  }

 private:
  // Most changes go on where the one before them ended.
  void Change() {
    auto kind = static_cast<EditKind>(random_() % 3);
    TextRange range = RandomRange(random_, buffer_.Size(), 3);
    if (random_() % 4 && at_ <= buffer_.End()) range = {at_, at_};
    std::string text = kind == EditKind::kDeleting && random_() % 4 ? std::string() : RandomText(random_, 3);
    if (text.empty() && range.Empty() && range.start.value > 0) --range.start;
    if (text.empty() && range.Empty()) return;
    buffer_.Replace(range, text, kind);
    model_.Replace(range, text, kind);
    at_ = range.start + static_cast<std::int64_t>(text.size());
  }

  void List() {
    EditList edits = RandomEdits(random_, buffer_.Size());
    if (edits.Empty()) return;
    buffer_.Apply(edits);
    model_.Push(After(model_.Text(), edits));
  }

  std::mt19937& random_;
  std::string text_;
  UndoModel model_;
  TextBuffer buffer_;
  BytePos at_;
};

TEST(UndoLevels, AreARowOfTexts) {
  std::mt19937 random(2);
  for (int levels : {2, 3, 7, 1000})
    for (int round = 0; round < 60; ++round) {
      UndoWalk walk(random, levels);
      for (int step = 0; step < 150; ++step) {
        ASSERT_NO_FATAL_FAILURE(walk.Step());
        ASSERT_NO_FATAL_FAILURE(walk.Check()) << levels << " levels, step " << step;
      }
    }
}

TEST(UndoLevels, OfOneKnowNothingOfThem) {
  TextBuffer buffer = BufferOf("ab");
  buffer.SetUndoLevels(0);
  buffer.MarkSaved();
  EXPECT_FALSE(buffer.HasUndoLevels());
  buffer.Replace(Range(0, 0), "x\r\n", EditKind::kTyping);
  buffer.EndUndoUnit();
  buffer.Replace(Range(3, 3), "y", EditKind::kTyping);
  EXPECT_TRUE(buffer.UndoLast());
  EXPECT_EQ(buffer.View().Copy(), "ab");
  EXPECT_FALSE(buffer.IsSaved());
  EXPECT_FALSE(buffer.CanRedo());
  EXPECT_FALSE(buffer.RedoNext());
  EXPECT_TRUE(buffer.UndoLast());
  EXPECT_EQ(buffer.View().Copy(), "x\r\nyab");
}

TEST(UndoLevels, KeepWhatWasSelectedAroundAList) {
  TextBuffer buffer = BufferOf("one two");
  buffer.SetUndoLevels(5);
  EditList edits;
  edits.Add(Range(0, 3), "1");
  buffer.Apply(edits, Range(0, 7));
  buffer.Replace(Range(0, 0), "x");
  EXPECT_EQ(buffer.SelectionBeforeLast(), std::nullopt);
  EXPECT_EQ(buffer.UndoLast(Range(1, 1)), Range(0, 0));
  EXPECT_EQ(buffer.SelectionBehindNext(), std::nullopt);
  EXPECT_EQ(buffer.SelectionBeforeLast(), Range(0, 7));
  EXPECT_EQ(buffer.UndoLast(Range(2, 4)), Range(0, 3));
  EXPECT_EQ(buffer.SelectionBehindNext(), Range(2, 4));
}

TEST(UndoLevels, HoldNoMoreThanTheyMay) {
  constexpr std::size_t kUnit = 1000, kMost = 3 * (kUnit + sizeof(UndoUnit));
  TextBuffer buffer = BufferOf(std::string(10 * kUnit, 'x'));
  buffer.SetUndoLevels(100, kMost);
  buffer.MarkSaved();
  for (int i = 0; i < 8; ++i) buffer.Replace(Range(0, kUnit), "");
  for (int i = 0; i < 3; ++i) ASSERT_TRUE(buffer.UndoLast());
  EXPECT_FALSE(buffer.UndoLast());
  EXPECT_FALSE(buffer.IsSaved());
  EXPECT_EQ(buffer.Size(), static_cast<std::int32_t>(5 * kUnit));
  // The way forward, too: what was inserted is kept once it is taken back.
  for (int i = 0; i < 5; ++i) buffer.Replace(Range(0, 0), std::string(kUnit, 'y'));
  while (buffer.UndoLast()) continue;
  int steps = 0;
  while (buffer.RedoNext()) ++steps;
  EXPECT_EQ(steps, 3);
  buffer.Replace(Range(0, buffer.Size()), "");
  EXPECT_TRUE(buffer.UndoLast()) << "the last change alone may hold more";
}

}  // namespace
}  // namespace tarrow
