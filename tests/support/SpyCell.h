#ifndef TESTS_SUPPORT_SPYCELL_H
#define TESTS_SUPPORT_SPYCELL_H

#include <cstddef>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

#include <cells/OmCellText.h>

#include "support/faults/FailingNew.h"

/// A text cell that can be watched: it knows how many of its kind are alive, tells a SpyLog what is
/// called on it, and throws when a SpyFailure wants it to.
///
/// All spy cells of the process are watched together; one thread at a time uses them.
class SpyCell : public OmCellText {
 public:
  enum class Operation {
    Clone,
    GetText,
    GetKind,
    Compare,
    ShareContext,
    UseTracker,
    Dump,
    Accept,
    Destroy,
  };

  /// What callers of a cell have to bear when it throws.
  static constexpr Operation kThrowing[] = {
      Operation::Clone,        Operation::GetText,    Operation::GetKind, Operation::Compare,
      Operation::ShareContext, Operation::UseTracker, Operation::Accept};

  static constexpr long kKind = 1000;

  /// @param text compared and returned as it is; spies order by its bytes.
  /// @param kind what GetKind() gives, for labels that differ in nothing else.
  explicit SpyCell(std::string const& text, long kind = kKind);
  ~SpyCell() override;

  OmCellText* Clone(OmMemoryRegion* region) const override;
  std::string GetText() const override;
  long GetKind() const override;
  short Compare(OmCellText const& other, bool ignoreCase) const override;
  void ShareContext(OmCellText const& other) override;
  void UseTracker(icuTracker* tracker) override;
  void Dump(int indent) const override;
  void Accept(OmCellText::Visitor& visitor) override;
  icuTracker* GetTracker() const override { return tracker_; }

  /// How many spy cells exist.
  static long Live();

 protected:
  /// A copy that is bound to no tracker.
  SpyCell(SpyCell const& other);

 private:
  std::string text_;
  long kind_;
  icuTracker* tracker_ = nullptr;
};

/// Checks in the end that no spy cells were left behind since its beginning. As the first member of
/// a fixture it outlives the others.
class SpyBalance {
 public:
  SpyBalance() : before_(SpyCell::Live()) {}
  ~SpyBalance() { EXPECT_EQ(SpyCell::Live(), before_); }
  SpyBalance(SpyBalance const&) = delete;
  SpyBalance& operator=(SpyBalance const&) = delete;

 private:
  long before_;
};

/// Records what is called on all spy cells while it exists. One exists at a time.
///
/// Recording allocates: do not combine it with refused allocations.
class SpyLog {
 public:
  struct Call {
    SpyCell::Operation operation;
    SpyCell const* cell;       ///< the cell called; may be gone by now
    std::string text;          ///< its text
    OmCellText const* other;   ///< the argument of Compare and ShareContext, else null
    OmMemoryRegion* region;    ///< the argument of Clone, else null
    icuTracker* tracker;       ///< the argument of UseTracker, else null
    OmCellText const* result;  ///< what Clone gave, else null
    int number;                ///< Dump's indent, or whether Compare ignores case; else 0
  };

  SpyLog();
  ~SpyLog();
  SpyLog(SpyLog const&) = delete;
  SpyLog& operator=(SpyLog const&) = delete;

  /// All calls, oldest first.
  std::vector<Call> calls;

  /// The calls of one operation, oldest first.
  std::vector<Call> Of(SpyCell::Operation operation) const;

  /// Every call as "Operation text", for comparing sequences.
  std::vector<std::string> Lines() const;
};

/// Makes a call on a spy cell throw an Exception: the n-th call of `operation` from here on, counted
/// from 1 over all spy cells, and with Mode::FromThenOn all later ones. One exists at a time. Destroy
/// cannot fail.
class SpyFailure {
 public:
  struct Exception : std::runtime_error {
    using std::runtime_error::runtime_error;
  };

  SpyFailure(SpyCell::Operation operation, std::size_t n, FailAfter::Mode mode);
  ~SpyFailure();
  SpyFailure(SpyFailure const&) = delete;
  SpyFailure& operator=(SpyFailure const&) = delete;

  /// Whether the call was made, and threw.
  bool HasThrown() const;
};

/// Runs `attempt` with the first call of `operation` failing, then with the second, ... until there
/// is none to fail, in both modes, and calls `check` after every failure. Returns how many calls have
/// failed. It fails when `attempt` keeps what a call throws to itself.
template <class Attempt, class Check>
std::size_t FailEveryCall(SpyCell::Operation operation, Attempt attempt, Check check) {
  for (std::size_t n = 1;; ++n) {
    for (FailAfter::Mode const mode : {FailAfter::Mode::FromThenOn, FailAfter::Mode::Once}) {
      try {
        SpyFailure const failing(operation, n, mode);
        attempt();
        if (!failing.HasThrown()) {
          return n - 1;
        }
        ADD_FAILURE() << "call " << n << " threw, and the operation kept that to itself";
      } catch (SpyFailure::Exception const&) {  // NOLINT(bugprone-empty-catch): checked without it
      }
      check();
    }
  }
}

#endif
