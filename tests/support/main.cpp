#include <gtest/gtest.h>

#include <cells/OmMemoryRegion.h>

namespace {

/// Every test must leave the default heap as it found it, whatever else it checks.
class DefaultHeapBalance : public testing::EmptyTestEventListener {
  void OnTestStart(testing::TestInfo const&) override {
    before_ = OmMemoryRegion::DefaultHeap()->BytesInUse();
  }
  void OnTestEnd(testing::TestInfo const& info) override {
    unsigned long const after = OmMemoryRegion::DefaultHeap()->BytesInUse();
    if (after != before_) {
      ADD_FAILURE() << info.name() << " leaves " << after
                    << " bytes on the default heap, which held " << before_ << " before";
    }
  }
  unsigned long before_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  testing::UnitTest::GetInstance()->listeners().Append(new DefaultHeapBalance);
  return RUN_ALL_TESTS();
}
