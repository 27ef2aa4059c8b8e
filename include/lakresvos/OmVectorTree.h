#ifndef LAKRESVOS_OMVECTORTREE_H
#define LAKRESVOS_OMVECTORTREE_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include <lakresvos/OmAssertion.h>
#include <lakresvos/OmVector.h>

/// One node of an OmVectorTree: a payload, the children by value in order, and a link to the
/// parent.
///
/// A node's identity is its address in its parent's children. Whatever moves that block (growth,
/// insertion, removal) moves the node while the links of its children still name the old place;
/// each operation of OmVectorTree says which links it repairs.
///
/// Thread safety: none; one thread at a time uses a tree and its nodes.
///
/// @tparam Type the payload; relocatable by a plain copy of its bytes.
template <class Type>
struct OmVectorTreeElement {
  Type value;                              ///< the payload
  OmVector<OmVectorTreeElement> children;  ///< the children, owned
  OmVectorTreeElement* parent;             ///< the parent; null at a root

  /// A node without children, whose value is made from `payload`.
  /// @param source  supplies the children's storage; null means the default heap.
  /// @param payload what the value's constructor is given.
  /// @tparam Arguments their types.
  /// @throws whatever making the value throws.
  template <class... Arguments>
  explicit OmVectorTreeElement(OmMemoryRegion* source, Arguments&&... payload)
      : value(std::forward<Arguments>(payload)...), children(source), parent(nullptr) {}

  /// Copies the whole subtree with exact capacities, into the regions of the source. Parent links
  /// are copied as they are, so all of them still point into the source tree. Linear in the number
  /// of nodes.
  /// @throws whatever copying a value throws, or std::bad_alloc.
  OmVectorTreeElement(OmVectorTreeElement const& source)
      : OmVectorTreeElement(source.children.region, source.value) {
    parent = source.parent;
    CopyChildren(source, *this, [](OmVectorTreeElement const& original, OmVectorTreeElement*) {
      return Origin{original.children.region, original.parent};
    });
  }

  OmVectorTreeElement& operator=(OmVectorTreeElement const&) = delete;

  /// Destroys the node's subtree.
  ~OmVectorTreeElement() { DestroyDescendants(); }

  /// Destroys everything below this node and gives back the children's storage.
  /// Needs no memory of its own: the nodes that are going away hold the way back up.
  void DestroyDescendants() {
    OmVectorTreeElement* current = this;
    current->children.capacityEnd = current->children.begin;
    for (;;) {
      OmVectorTreeElement*& cursor = current->children.capacityEnd;
      if (cursor != current->children.end) {
        OmVectorTreeElement* child = cursor++;
        child->parent = current;
        child->children.capacityEnd = child->children.begin;
        current = child;
        continue;
      }
      current->children.Clear();
      if (current == this) {
        break;
      }
      current->value.~Type();
      current = current->parent;
    }
  }

  /// Where a copied node takes its storage from and whom it names as its parent.
  struct Origin {
    OmMemoryRegion* region;       ///< for the children's storage; null means the default heap
    OmVectorTreeElement* parent;  ///< the copy's parent link
  };

  /// Fills `target`, which has no children, with copies of everything below `source`.
  /// @param source     the node whose children are copied.
  /// @param target     the node that gets them.
  /// @param makeOrigin called with the node to copy and the copy of its parent; gives an Origin.
  /// @tparam MakeOrigin its type.
  /// @throws whatever copying a value throws; what was copied until then hangs below `target`.
  template <class MakeOrigin>
  static void CopyChildren(OmVectorTreeElement const& source, OmVectorTreeElement& target,
                           MakeOrigin makeOrigin) {
    struct Frame {
      OmVectorTreeElement const* source;
      OmVectorTreeElement* target;
    };
    target.children.reserve(source.children.size());
    std::vector<Frame> path{{&source, &target}};
    while (!path.empty()) {
      Frame const top = path.back();
      std::size_t const next = top.target->children.size();
      if (next == top.source->children.size()) {
        path.pop_back();
        continue;
      }
      OmVectorTreeElement const& original = top.source->children[next];
      Origin const from = makeOrigin(original, top.target);
      OmVectorTreeElement& copy = top.target->children.emplace_back(from.region, original.value);
      copy.parent = from.parent;
      copy.children.reserve(original.children.size());
      path.push_back({&original, &copy});
    }
  }
};

/// A tree whose nodes keep their children by value, in order, in storage from an OmMemoryRegion.
///
/// The tree object is its own root node. Nodes are addressed by the value handles Node and
/// ConstNode, which pair a node's address with its depth. A handle is valid until a child is added
/// to or removed from the children of the node's parent or of an ancestor of that, for this may
/// move them; adding within a reserved capacity moves none.
///
/// Operations that change the tree are static where they need no more than the parent, so that an
/// edit can work on a part of a tree. Those that repair no parent links say so; RelinkParents()
/// repairs them. A wrong link misleads Parent(), Counterpart() and EraseChild() and nothing else.
///
/// The tree owns its values and destroys them; for a pointer type it does not own what is pointed
/// at. Queries of handles take constant time and throw nothing.
///
/// Thread safety: none; one thread at a time uses a tree and its handles.
///
/// @tparam Type the payload; relocatable by a plain copy of its bytes and default-constructible.
template <class Type>
class OmVectorTree : public OmVectorTreeElement<Type> {
  template <class Self, class ElementType>
  struct Access;

 public:
  /// One node of the tree.
  using Element = OmVectorTreeElement<Type>;

  struct Node;

  /// A handle for reading only. Besides what is listed, it has
  ///
  /// - `std::size_t NChildren() const`: the number of children;
  /// - `ConstNode Child(std::size_t index) const` and `operator[]`: a child, or an empty handle;
  /// - `ConstNode Parent() const`: the parent, or an empty handle for a root.
  ///
  /// An empty handle has no children and no parent.
  struct ConstNode : Access<ConstNode, Element const> {
    Element const* element = nullptr;  ///< the node; null in an empty handle
    unsigned int depth = 0;            ///< its level, 0 for the root

    /// An empty handle.
    ConstNode() = default;
    /// The handle of a node at a level; null makes an empty handle. The level is not checked.
    ConstNode(Element const* node, unsigned int level) : element(node), depth(level) {}

    /// The node's payload; valid until the node moves. A default value for an empty handle.
    Type const& Value() const { return element != nullptr ? element->value : GetDefaultValue(); }
  };

  /// A handle that lets its holder change the value; otherwise as ConstNode, with Node in its
  /// place.
  struct Node : Access<Node, Element> {
    Element* element = nullptr;  ///< the node; null in an empty handle
    unsigned int depth = 0;      ///< its level, 0 for the root

    /// An empty handle.
    Node() = default;
    /// The handle of a node at a level; null makes an empty handle. The level is not checked.
    Node(Element* node, unsigned int level) : element(node), depth(level) {}
    /// The same node, for reading.
    operator ConstNode() const { return {element, depth}; }

    /// The node's payload, to read or change. An empty handle gives a default value that belongs to
    /// no tree and is made anew at each call.
    Type& Value() const { return element != nullptr ? element->value : GetDefaultValue(); }

    /// The node at the same place in `other`, a tree that has at least this one's shape along the
    /// path. Only the source tree is checked: a node that is not among its parent's children aborts
    /// the process; a place that `other` lacks gives an empty handle, as an empty handle does.
    /// Linear in the depth.
    /// @throws std::bad_alloc.
    Node Counterpart(OmVectorTree& other) const;
  };

  /// Makes a tree without children below its root.
  /// @param region supplies the children's storage; null means the default heap. Requires: it
  ///        outlives the tree.
  /// @param root   what the root's value is made from; nothing makes a default value.
  /// @tparam Arguments the types of what the root's value is made from.
  /// @throws whatever making the value throws.
  template <class... Arguments>
  explicit OmVectorTree(OmMemoryRegion* region = nullptr, Arguments&&... root)
      : Element(region, std::forward<Arguments>(root)...) {}

  OmVectorTree(OmVectorTree const&) = delete;
  OmVectorTree& operator=(OmVectorTree const&) = delete;
  /// Destroys all nodes; needs no memory, however deep the tree is.
  ~OmVectorTree() = default;

  /// The handle of the root, at depth 0; valid as long as the tree.
  Node Root() { return {this, 0}; }
  /// The handle of the root, to read.
  ConstNode Root() const { return {this, 0}; }

  /// Appends a child with a copy of `value` and returns its handle; amortized constant time.
  /// When the parent's children move, the links of their children are repaired, one level deep.
  /// A parent that is empty or past the end gives an empty handle and nothing happens.
  /// @throws whatever copying the value throws, or std::bad_alloc; the tree is then unchanged.
  static Node AppendChild(Node const& parent, Type const& value) {
    return EmplaceChild(parent, [&](Element& siblings_owner, OmMemoryRegion* region) -> Element& {
      return siblings_owner.children.emplace_back(region, value);
    });
  }

  /// Appends a child that takes over `value` by a bitwise move; `value` becomes a default value.
  /// Otherwise as AppendChild().
  /// @throws std::bad_alloc; tree and value are then unchanged.
  static Node AdoptChild(Node const& parent, Type& value) {
    return EmplaceChild(parent, [&](Element& siblings_owner, OmMemoryRegion* region) -> Element& {
      Element& child = siblings_owner.children.emplace_back(region);
      SwapBytes(child.value, value);
      return child;
    });
  }

  /// Inserts a copy of the subtree `e` before `position` (past the end: appends) and returns it.
  /// Its parent link is that of `e`; no link is repaired but those of what the block's growth
  /// moved. Linear in the later siblings and in the subtree.
  /// @throws as AppendChild().
  static Element* InsertChildAt(OmVector<Element>& children, std::size_t position,
                                Element const& e) {
    std::size_t const at = position < children.size() ? position : children.size();
    Element const* const before = children.begin;
    children.insert(at, e);
    if (children.begin != before) {
      for (Element& moved : children.Elements()) {
        LinkPlaces(moved, moved.children.end);
      }
    }
    return &children[at];
  }

  /// InsertChildAt() at the end.
  /// @throws as AppendChild().
  static Element* PushBackChild(OmVector<Element>& children, Element const& e) {
    return InsertChildAt(children, children.size(), e);
  }

  /// Inserts a copy of `e` below `parent`, before the first child whose value equals `*anchor`; at
  /// the end when `anchor` is null or no child equals it. Links are as after InsertChildAt().
  /// Linear in the children and in the subtree.
  /// @throws as AppendChild(), or whatever comparing throws.
  static void InsertChildBefore(Element& parent, Element const& e, Type const* anchor) {
    std::size_t const count = parent.children.size();
    std::size_t position = anchor != nullptr ? 0 : count;
    while (position < count && !(parent.children[position].value == *anchor)) {
      ++position;
    }
    InsertChildAt(parent.children, position, e);
  }

  /// Makes every child of `e` name `e` as its parent; with `recursive`, down to the leaves. Linear
  /// in what it visits; needs no memory and throws nothing.
  static void RelinkParents(Element& e, bool recursive) {
    Link(e);
    if (!recursive || e.children.size() == 0) {
      return;
    }
    Element* current = e.children.begin;
    while (current != &e) {
      Link(*current);
      if (current->children.size() != 0) {
        current = current->children.begin;
        continue;
      }
      while (current != &e && current + 1 == current->parent->children.end) {
        current = current->parent;
      }
      if (current != &e) {
        ++current;
      }
    }
  }

  /// Makes `target` a copy of the subtree `source` with correct links at every level. What `target`
  /// held before is destroyed.
  /// @param target what becomes the copy.
  /// @param source what is copied; not within `target`.
  /// @param parent becomes the target's parent link.
  /// @param region supplies the storage of all children; null means the default heap. Values keep
  ///        the region of the source's values.
  /// @throws whatever copying a value throws, or std::bad_alloc; `target` is then unchanged.
  static void CopySubtree(Element& target, Element const& source, Element* parent,
                          OmMemoryRegion* region) {
    Element copy(region, source.value);
    Element::CopyChildren(source, copy, [&](Element const&, Element* above) {
      return typename Element::Origin{region, above};
    });
    SwapBytes(target.value, copy.value);
    SwapBytes(target.children, copy.children);
    target.parent = parent;
    Link(target);
  }

  /// Destroys the node's subtree and closes the gap. No link is repaired: the children of the later
  /// siblings still name the old places of their parents until RelinkParents(). Does nothing when
  /// the node is not among its parent's children. The handle then points at the next sibling, or
  /// past the end. Linear in the subtree and in the later siblings; throws nothing.
  static void EraseChild(Node& node) {
    if (node.element == nullptr || node.element->parent == nullptr) {
      return;
    }
    Element& parent = *node.element->parent;
    EraseChildAt(parent, PositionAmong(parent, node.element));
  }

  /// EraseChild() of the child at `position` of `parent`; does nothing when there is none.
  static void EraseChildAt(Element& parent, std::size_t position) {
    if (position >= parent.children.size()) {
      return;
    }
    parent.children[position].~Element();
    parent.children.erase(position);
    Vacate(parent, parent.children.end + 1);
  }

  /// Destroys everything below `e`, gives back the children's storage, forgets its region and
  /// destroys the value, leaving a default one. Linear in the subtree; throws nothing.
  static void DestroySubtree(Element& e) {
    e.DestroyDescendants();
    e.children.region = nullptr;
    e.value.~Type();
    ::new (static_cast<void*>(&e.value)) Type();
  }

  /// The position of `child` among the children of `parent`; their number or more when it is none
  /// of them. Constant time; throws nothing.
  static std::size_t PositionAmong(Element const& parent, Element const* child) {
    auto const first = reinterpret_cast<std::uintptr_t>(parent.children.begin);
    auto const at = reinterpret_cast<std::uintptr_t>(child);
    return at < first ? SIZE_MAX : (at - first) / sizeof(Element);
  }

  /// Whether `e` is a place after its parent's last child, which is what a handle points at once
  /// the last child was removed through it. Constant time; throws nothing.
  static bool PastTheEnd(Element const& e) {
    // Only such a place and a node after DestroySubtree() have no region.
    return e.children.region == nullptr && e.parent != nullptr &&
           PositionAmong(*e.parent, &e) >= e.parent->children.size();
  }

  /// Makes the places from the end of the parent's children up to `last` empty nodes that know
  /// their parent, for handles that still point there. Requires: they hold the bytes of nodes that
  /// are gone or live on elsewhere. Throws nothing.
  static void Vacate(Element& parent, Element* last) {
    for (Element* vacated = parent.children.end; vacated != last; ++vacated) {
      std::memset(static_cast<void*>(vacated), 0, sizeof(Element));
      vacated->parent = &parent;
    }
  }

 private:
  /// What both handles read alike. `Self` has the fields `element` and `depth`.
  template <class Self, class ElementType>
  struct Access {
    /// The number of children; 0 for an empty handle.
    std::size_t NChildren() const {
      return self().element != nullptr ? self().element->children.size() : 0;
    }

    /// The child at `index`; an empty handle when there is none.
    Self Child(std::size_t index) const {
      return index < NChildren() ? Self{&self().element->children.begin[index], self().depth + 1}
                                 : Self{};
    }
    Self operator[](std::size_t index) const { return Child(index); }

    /// The parent; an empty handle for a root.
    Self Parent() const {
      ElementType* above = self().element != nullptr ? self().element->parent : nullptr;
      return above != nullptr ? Self{above, self().depth - 1} : Self{};
    }

   private:
    Self const& self() const { return static_cast<Self const&>(*this); }
  };

  static Type& GetDefaultValue() {
    thread_local Type none{};
    none.~Type();
    return *::new (static_cast<void*>(&none)) Type();
  }

  template <class Object>
  static void SwapBytes(Object& a, Object& b) {
    alignas(Object) unsigned char held[sizeof(Object)];
    std::memcpy(held, static_cast<void*>(&a), sizeof(Object));
    std::memcpy(static_cast<void*>(&a), static_cast<void*>(&b), sizeof(Object));
    std::memcpy(static_cast<void*>(&b), held, sizeof(Object));
  }

  /// The places past the end are linked with the children: handles may still point there.
  static void Link(Element& e) { LinkPlaces(e, e.children.begin); }

  static void LinkPlaces(Element& e, Element* first) {
    for (Element* place = first; place != e.children.capacityEnd; ++place) {
      place->parent = &e;
    }
  }

  template <class Emplace>
  static Node EmplaceChild(Node const& parent, Emplace emplace) {
    if (parent.element == nullptr || PastTheEnd(*parent.element)) {
      return {};
    }
    Element& owner = *parent.element;
    Element const* const before = owner.children.begin;
    Element& child = emplace(owner, owner.children.region);
    child.parent = &owner;
    if (owner.children.begin != before && owner.children.size() >= 2) {
      for (Element& moved : owner.children.Elements()) {
        Link(moved);
      }
    }
    return {&child, parent.depth + 1};
  }

  /// The name of the payload type, as the compiler spells it.
  static std::string GetTypeName() {
    std::string const text = __PRETTY_FUNCTION__;
    std::string const mark = "Type = ";
    std::size_t const start = text.rfind(mark) + mark.size();
    return text.substr(start, text.find_first_of(";]", start) - start);
  }

  [[noreturn]] static void FailCounterpart() {
    std::string const function =
        "OmVectorTree<Type>::Node OmVectorTree<Type>::Node::Counterpart(OmVectorTree<Type>&) "
        "[with Type = " +
        GetTypeName() + "]";
    OmAssertionFailed("0 <= offset && offset < vec.size()", "backend/tables/om/VectorTree", 384,
                      function.c_str());
  }
};

template <class Type>
typename OmVectorTree<Type>::Node OmVectorTree<Type>::Node::Counterpart(OmVectorTree& other) const {
  if (element == nullptr) {
    return {};
  }
  std::vector<std::size_t> offsets;
  Element const* node = element;
  for (unsigned int level = depth; level != 0; --level) {
    Element const* const above = node->parent;
    std::size_t const offset = above != nullptr ? PositionAmong(*above, node) : SIZE_MAX;
    if (above == nullptr || !(offset < above->children.size())) {
      FailCounterpart();
    }
    offsets.push_back(offset);
    node = above;
  }
  Node result = other.Root();
  for (std::size_t i = offsets.size(); i != 0; --i) {
    result = result.Child(offsets[i - 1]);
  }
  return result;
}

#endif
