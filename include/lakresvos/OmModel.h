#ifndef LAKRESVOS_OMMODEL_H
#define LAKRESVOS_OMMODEL_H

#include <string>

#include <lakresvos/Export.h>
#include <lakresvos/OmOutputPart.h>

/// A statistical model, kept byte for byte as it is delivered.
///
/// Operations that take a pointer and a length append the bytes, zero bytes included, and never
/// replace anything: what arrives in several pieces is their concatenation. The caller keeps the
/// bytes. References that queries return are valid as long as the item and show later changes.
///
/// Appending takes amortized time linear in the bytes, except that the binary data is made exactly
/// as long as needed at each call. What runs out of memory throws std::bad_alloc and changes
/// nothing; queries take constant time and throw nothing.
///
/// Thread safety: none; one thread at a time uses an item and the tree that holds it.
class LAKRESVOS_EXPORT OmModel : public OmOutputPart {
 public:
  /// What a model consists of.
  enum MODEL_TYPE : int {
    MODEL_DOCUMENT = 0,  ///< a document of its own, at first
    MODEL_CONTAINER = 1  ///< a container of model documents
  };

  /// A model without content.
  /// @param label the item's outline text, copied.
  /// @throws whatever the label's Clone throws, or std::bad_alloc.
  explicit OmModel(OmCellText const& label);
  ~OmModel() override;
  void Accept(Visitor& visitor) override;

  /// Appends to the model document in PMML. Requires: `count` bytes at `bytes`, as for every such
  /// operation here.
  virtual void SetPMML(char const* bytes, unsigned int count);

  /// Appends to the binary data. `bytes` may point into GetBinaryDataStream().
  virtual void SetBinaryDataStream(char const* bytes, unsigned int count);

  /// Appends to the container of PMML documents. Also makes the model's type MODEL_CONTAINER, at
  /// every call.
  virtual void SetPMMLContainer(char const* bytes, unsigned int count);

  /// Appends to the container of statistics in XML. Also makes the model's type MODEL_CONTAINER, at
  /// every call.
  virtual void SetStatXMLContainer(char const* bytes, unsigned int count);

  /// Replaces the model's type.
  void SetModelType(MODEL_TYPE type);

  /// The model's type; MODEL_DOCUMENT at first.
  MODEL_TYPE GetModelType() const;

  /// The model document in PMML; empty at first, as all texts here.
  std::string const& GetPMML() const;

  /// The binary data.
  std::string const& GetBinaryDataStream() const;

  /// The container of PMML documents.
  std::string const& GetPMMLContainer() const;

  /// The container of statistics in XML.
  std::string const& GetStatXMLContainer() const;

 private:
  struct LAKRESVOS_HIDDEN Data;
  Data* _my;
};

#endif
