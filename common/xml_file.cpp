#include "common/xml_file.h"

#include <string>

#include "OvkLib/src/ovk_xml_reader.h"
#include "common/files.h"

namespace ovk::xml {

bool load(const std::filesystem::path& path, element& root) {
  std::string bytes;
  if (!ReadFileBytes(path, bytes, kMostXmlBytes)) return false;
  if (!parse(root, bytes.data(), bytes.size())) return false;
  trim(root);
  return true;
}

bool save(const std::filesystem::path& path, const element& root) {
  string text;
  serialize(text, root, 0);
  return WriteFileBytes(path, text.view());
}

}  // namespace ovk::xml
