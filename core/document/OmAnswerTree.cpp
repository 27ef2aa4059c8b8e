#include <lakresvos/OmAnswerTree.h>

struct OmAnswerTree::Data {
  explicit Data(std::string const& page) : codePage(page) {}

  int treeType = -1;
  std::string path;
  std::string compressedXml;
  unsigned int xmlUncompressedLength = 0;
  std::string uncompressedXml;
  std::string uncompressedDisplayXML;
  std::string const& codePage;
};

OmAnswerTree::OmAnswerTree(OmCellText const& label, std::string const& codePage)
    : OmOutputPart(label), _my(new Data(codePage)) {}

OmAnswerTree::~OmAnswerTree() {
  delete _my;
}

void OmAnswerTree::Accept(Visitor& visitor) {
  visitor.Visit(*this);
}

void OmAnswerTree::SetTreeType(int type) {
  _my->treeType = type;
}

void OmAnswerTree::SetPath(char const* bytes, unsigned int count) {
  _my->path.append(bytes, count);
}

void OmAnswerTree::SetCompressedXML(char const* bytes, unsigned int count,
                                    unsigned int uncompressedLength) {
  _my->compressedXml.append(bytes, count);
  _my->xmlUncompressedLength = uncompressedLength;
}

void OmAnswerTree::SetUncompressedXML(char const* bytes, unsigned int count) {
  _my->uncompressedXml.append(bytes, count);
}

void OmAnswerTree::SetUncompressedDisplayXML(char const* bytes, unsigned int count) {
  _my->uncompressedDisplayXML.append(bytes, count);
}

void OmAnswerTree::Done() {}

int OmAnswerTree::GetTreeType() const {
  return _my->treeType;
}
unsigned int OmAnswerTree::GetXmlUncompressedLength() const {
  return _my->xmlUncompressedLength;
}
std::string const& OmAnswerTree::GetPath() const {
  return _my->path;
}
std::string const& OmAnswerTree::GetCompressedXml() const {
  return _my->compressedXml;
}
std::string const& OmAnswerTree::GetUncompressedXml() const {
  return _my->uncompressedXml;
}
std::string const& OmAnswerTree::GetUncompressedDisplayXML() const {
  return _my->uncompressedDisplayXML;
}
