#include "doctor/sentence.h"

#include "OvkLib/src/ovk_format.h"

namespace doctor {

namespace {

std::string Filled(std::string_view text, const std::vector<std::string>& arguments) {
  const std::vector<std::string_view> views(arguments.begin(), arguments.end());
  std::string filled;
  ovk::fill(filled, text, views);
  return filled;
}

}  // namespace

std::string Sentence::Text() const {
  return empty() ? std::string() : Filled(Translate(key_), arguments_);
}

std::string Sentence::English() const {
  return Filled(key_, arguments_);
}

Sentence Sentence::With(const std::function<std::string(std::string_view)>& change) const {
  Sentence changed(key_);
  for (const std::string& argument : arguments_) changed.arguments_.push_back(change(argument));
  return changed;
}

}  // namespace doctor
