#include "app/document/recovery_copies.h"

#include <string_view>
#include <system_error>

#include "common/files.h"
#include "common/xml_file.h"
#include "program/program_file.h"

namespace app {

namespace {

namespace fs = std::filesystem;

constexpr int kMostCopies = 99;
// This attribute stands on the root of the file, where readers of programs do not look.
constexpr std::string_view kFileAttribute = "file";

fs::path NameOf(const fs::path& folder, int number) {
  return folder / ("LumarineRecovery-" + std::to_string(number) + ".xml");
}

void Remove(const fs::path& path) {
  std::error_code ignored;  // it is offered again then
  fs::remove(path, ignored);
}

}  // namespace

fs::path RecoveryCopies::Keep(const TCBase::Program::ModeListView& document, const fs::path& file) {
  fs::path path = own_.empty() ? FreeName() : own_;
  if (path.empty()) return {};
  ovk::xml::element root;
  TCBase::Program::BuildProgramXml(document, root);
  root.attribute(kFileAttribute).value = ovk::string(std::string_view(Utf8FromPath(file)));
  if (!ovk::xml::save(path, root)) return {};
  own_ = path;
  return path;
}

void RecoveryCopies::OnSaved(const fs::path& file) {
  // Where the system does not tell whether that is the copy itself, it stays and is offered.
  std::error_code error;
  if (!own_.empty() && !fs::equivalent(own_, file, error) && !error) Remove(own_);
  own_.clear();
}

std::vector<RecoveryCopies::Copy> RecoveryCopies::Find() const {
  std::vector<Copy> found;
  for (int number = 1; number <= kMostCopies; ++number) {
    Copy copy{NameOf(folder_, number), {}};
    if (copy.path == own_) continue;
    ovk::xml::element root;
    TCBase::Program::ModeListView document;
    if (!ovk::xml::load(copy.path, root) || root.find_attribute(kFileAttribute) < 0) continue;
    if (!TCBase::Program::ReadProgramXml(root, document)) continue;
    copy.file = root.attribute_or_empty(kFileAttribute).view();
    found.push_back(std::move(copy));
  }
  return found;
}

void RecoveryCopies::Discard(const Copy& copy) {
  Remove(copy.path);
}

fs::path RecoveryCopies::FreeName() const {
  for (int number = 1; number <= kMostCopies; ++number) {
    fs::path path = NameOf(folder_, number);
    if (!MayBeThere(path)) return path;
  }
  return {};
}

}  // namespace app
