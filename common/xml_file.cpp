#include "common/xml_file.h"

#include <string>
#include <system_error>

#include "OvkLib/src/ovk_xml_reader.h"
#include "common/files.h"
#include "common/log.h"
#include "common/message.h"

namespace ovk::xml {

bool load(const std::filesystem::path& path, element& root, std::string* reason) {
  std::string bytes;
  if (!ReadFileBytes(path, bytes, kMostXmlBytes, reason)) return false;
  if (!parse(root, bytes.data(), bytes.size())) return false;
  trim(root);
  return true;
}

bool save(const std::filesystem::path& path, const element& root, std::string* reason, std::uint64_t* mark) {
  string text;
  serialize(text, root, 0);
  if (text.view().size() > kMostXmlBytes) {
    const std::string tooLong = std::make_error_code(std::errc::file_too_large).message();
    LogStatus(Message("Error creating file {1}, error: {2}", path, tooLong));
    if (reason != nullptr) *reason = tooLong;
    return false;
  }
  if (!WriteFileBytes(path, text.view(), false, reason)) return false;
  if (mark != nullptr) *mark = ContentMark(text.view());
  return true;
}

}  // namespace ovk::xml
