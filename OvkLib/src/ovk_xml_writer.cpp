#include <cstdint>
#include <string_view>

#include "OvkLib/src/ovk_scan.h"
#include "OvkLib/src/ovk_short_text.h"
#include "OvkLib/src/ovk_xml.h"

namespace ovk::xml {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kCDataMark = "<![CDATA[";
constexpr std::int32_t kIndentStep = 2;

// What goes out in a byte's place. None for a byte that stands for itself.
constexpr std::string_view EscapeOf(char byte) {
  switch (byte) {
    case '"':
      return "&quot;";
    case '&':
      return "&amp;";
    case '\'':
      return "&apos;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    default:
      return {};
  }
}

// Collects the many short pieces and hands them to the string in large ones.
class writer {
 public:
  explicit writer(ovk::string& out) : out_(out) {}

  void put(std::string_view text) {
    if (text.size() > sizeof(buffer_) - used_) {
      flush();
      if (text.size() > sizeof(buffer_)) return out_.append(text);
    }
    move_bytes(buffer_ + used_, text.data(), text.size());
    used_ += text.size();
  }

  void put_escaped(std::string_view text) {
    const char* const end = text.data() + text.size();
    const char* begin = text.data();
    while (true) {
      const char* const special = find_escaped(begin, end);
      put(std::string_view(begin, static_cast<std::size_t>(special - begin)));
      if (special == end) return;
      put(EscapeOf(*special));
      begin = special + 1;
    }
  }

  void put_blanks(std::int64_t count) {
    static constexpr std::string_view kBlanks =
        "                                                                ";
    for (; count > 0; count -= static_cast<std::int64_t>(kBlanks.size())) {
      put(kBlanks.substr(0, static_cast<std::size_t>(count)));
    }
  }

  void flush() {
    out_.append(std::string_view(buffer_, used_));
    used_ = 0;
  }

 private:
  ovk::string& out_;
  std::size_t used_ = 0;
  char buffer_[4096];
};

void PutEndTag(writer& to, const element& from) {
  to.put("</");
  to.put(from.name.view());
  to.put(">");
  to.put(kLineEnd);
}

void PutStartTag(writer& to, const element& from, bool empty) {
  to.put("<");
  to.put(from.name.view());
  for (const attribute& each : from.attributes) {
    to.put(" ");
    to.put(each.name.view());
    to.put("='");
    to.put_escaped(each.value.view());
    to.put("'");
  }
  to.put(empty ? std::string_view("/>") : std::string_view(">"));
}

// The element up to where its first child would stand; the whole of it if it has none.
void PutBeforeChildren(writer& to, const element& from, std::int64_t indent) {
  const std::string_view text = from.text.view();
  const bool childless = from.children.empty();
  to.put_blanks(indent);
  PutStartTag(to, from, childless && text.empty());
  if (childless && text.empty()) return to.put(kLineEnd);
  if (!childless) to.put(kLineEnd);
  // The one way to get a CDATA section out is to bring it in as a text.
  if (text.size() >= kCDataMark.size() && same_bytes(text.data(), kCDataMark.data(), kCDataMark.size())) {
    to.put(text);
  } else {
    to.put_escaped(text);
  }
  if (childless) PutEndTag(to, from);
}

}  // namespace

void serialize(ovk::string& out, const element& root, std::int32_t indent) {
  struct level {
    const element* parent;
    std::int32_t next;  // the child that comes next
  };
  writer to(out);
  array<level> open;
  // 64 bits, so that a large indent at the top cannot overflow further down.
  std::int64_t blanks = indent;

  PutBeforeChildren(to, root, blanks);
  if (!root.children.empty()) open.push_back({&root, 0});
  while (!open.empty()) {
    level& top = open.back();
    if (top.next < top.parent->children.count()) {
      const element& child = *top.parent->children[top.next++];
      PutBeforeChildren(to, child, blanks + kIndentStep);
      if (child.children.empty()) continue;
      open.push_back({&child, 0});
      blanks += kIndentStep;
    } else {
      to.put_blanks(blanks);
      PutEndTag(to, *top.parent);
      open.pop_back();
      blanks -= kIndentStep;
    }
  }
  to.flush();
}

}  // namespace ovk::xml
