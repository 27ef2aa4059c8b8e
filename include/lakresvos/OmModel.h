#ifndef LAKRESVOS_OMMODEL_H
#define LAKRESVOS_OMMODEL_H

#include <string>

#include <lakresvos/Export.h>
#include <lakresvos/OmOutputPart.h>

/// A statistical model, kept byte for byte as it is delivered. Every setter with a pointer and a
/// length appends.
///
/// Thread safety: as OmOutputPart.
class LAKRESVOS_EXPORT OmModel : public OmOutputPart {
 public:
  enum MODEL_TYPE : int {
    MODEL_DOCUMENT = 0,  ///< a document of its own, at first
    MODEL_CONTAINER = 1  ///< a container of model documents
  };

  explicit OmModel(OmCellText const& label);
  ~OmModel() override;
  void Accept(Visitor& visitor) override;

  virtual void SetPMML(char const* bytes, unsigned int count);
  virtual void SetBinaryDataStream(char const* bytes, unsigned int count);
  /// Also makes the model's type MODEL_CONTAINER.
  virtual void SetPMMLContainer(char const* bytes, unsigned int count);
  /// Also makes the model's type MODEL_CONTAINER.
  virtual void SetStatXMLContainer(char const* bytes, unsigned int count);

  void SetModelType(MODEL_TYPE type);
  MODEL_TYPE GetModelType() const;

  std::string const& GetPMML() const;
  std::string const& GetBinaryDataStream() const;
  std::string const& GetPMMLContainer() const;
  std::string const& GetStatXMLContainer() const;

 private:
  struct LAKRESVOS_HIDDEN Data;
  Data* _my;
};

#endif
