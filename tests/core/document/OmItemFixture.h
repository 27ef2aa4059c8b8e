#ifndef TESTS_CORE_DOCUMENT_OMITEMFIXTURE_H
#define TESTS_CORE_DOCUMENT_OMITEMFIXTURE_H

#include <cstddef>
#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>

#include <cells/OmStringCell.h>
#include <lakresvos/OmAnswerTree.h>
#include <lakresvos/OmChart.h>
#include <lakresvos/OmInteractive.h>
#include <lakresvos/OmModel.h>

#include "support/VirtualSlot.h"

/// An item that fixtures can hold, for no item here throws when it goes.
template <class Item>
struct HeldItem : Item {
  using Item::Item;
  ~HeldItem() noexcept override = default;
};

/// A new item with any label, without a code page.
template <class Item>
std::unique_ptr<Item> NewItem() {
  static std::string const no_page;
  OmStringCell const label("label");
  if constexpr (std::is_same_v<Item, OmModel>) {
    return std::make_unique<Item>(label);
  } else if constexpr (std::is_same_v<Item, OmAnswerTree>) {
    return std::make_unique<Item>(label, no_page);
  } else {
    return std::make_unique<Item>(label, no_page, 0);
  }
}

/// Remembers the overload that was called, with its argument.
struct KindVisitor : OmOutputPart::Visitor {
  void Visit(OmPivotTable& /*item*/) override { ++others; }
  void Visit(OmProcedure& /*item*/) override { ++others; }
  void Visit(OmHeading& /*item*/) override { ++others; }
  void Visit(OmTextBlock& /*item*/) override { ++others; }
  void Visit(OmPageTitle& /*item*/) override { ++others; }
  void Visit(OmChart& item) override { Remember(item); }
  void Visit(OmAnswerTree& item) override { Remember(item); }
  void Visit(OmModel& item) override { Remember(item); }
  void Visit(OmInteractive& item) override { Remember(item); }

  template <class Item>
  void Remember(Item& item) {
    ++calls;
    kind = &typeid(Item);
    visited = &item;
  }

  int calls = 0;
  int others = 0;
  std::type_info const* kind = nullptr;
  OmOutputPart const* visited = nullptr;
};

/// Whether an item that is known as a part only calls the visitor once, as an `Item`.
template <class Item>
bool IsVisitedAsItself() {
  std::unique_ptr<OmOutputPart> const part = NewItem<Item>();
  KindVisitor visitor;
  part->Accept(visitor);
  return visitor.calls == 1 && visitor.others == 0 && *visitor.kind == typeid(Item) &&
         visitor.visited == part.get();
}

/// The slot that the next virtual operation of a class derived from `Item` takes.
template <class Item>
std::ptrdiff_t NextSlot() {
  struct Probe : Item {
    virtual void Next() {}
  };
  return VirtualSlot(&Probe::Next);
}

#endif
