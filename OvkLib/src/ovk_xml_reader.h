#pragma once

// The XML reader: a push parser that takes bytes through a table of states and tells an observer what it
// meets, and the observer that builds a tree from that.
//
// It does not validate, knows of encodings only that all markup is ASCII, and looks at nothing behind the
// root element. Where a document failed is not told. Running out of memory raises xout_of_memory.

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "OvkLib/src/ovk_array.h"
#include "OvkLib/src/ovk_pool.h"
#include "OvkLib/src/ovk_string.h"
#include "OvkLib/src/ovk_xml.h"
#include "OvkLib/src/ovk_xml_states.h"

namespace ovk::xml {

/// Receives what the parser meets, in document order. False from an operation ends the document as malformed,
/// where the operation does not say otherwise. The strings belong to the parser, which changes them after the
/// call.
class observer {
 public:
  virtual ~observer() = default;
  /// An element opened. The result is not looked at: the start of a tag cannot fail.
  virtual bool on_start_tag(const ovk::string& name) = 0;
  /// The "/>" of the element that opened last.
  virtual bool on_close_empty() = 0;
  /// A named end tag.
  virtual bool on_end_tag(const ovk::string& name) = 0;
  /// An attribute of the element that opened last.
  virtual bool on_attribute(const ovk::string& name, const ovk::string& value) = 0;
  /// One byte of character data. The result is not looked at for a "]" that turns out to end no CDATA
  /// section, nor for the byte behind it.
  virtual bool on_char(char c) = 0;
  /// Forgets all that was received.
  virtual void reset() {}
  /// The replacement of a named reference; `name` is as it was written, "&" and ";" included. True if it
  /// filled `out`; false leaves the reference to the parser.
  virtual bool resolve_entity(const ovk::string& name, ovk::string& out);
  /// The same for the number of a numeric reference.
  virtual bool resolve_char(std::uint32_t code, ovk::string& out);
};

/// Builds the tree. Says false to what has no place in one: an attribute, text or an end outside of an
/// element, an end tag with another name than its start, a second root.
///
/// A tree takes its memory from a pool of its builder's, which it outlives: the parts of one document belong
/// to one thread at a time, also where they were moved apart.
class tree_builder final : public observer {
 public:
  bool on_start_tag(const ovk::string& name) override;
  bool on_close_empty() override;
  bool on_end_tag(const ovk::string& name) override;
  /// If two attributes have one name, the value of the last stands at the place of the first.
  bool on_attribute(const ovk::string& name, const ovk::string& value) override;
  bool on_char(char c) override;
  void reset() override;

  /// The same from text that stands in no string yet, and any number of characters.
  bool add_element(std::string_view name);
  bool end_element(std::string_view name);
  bool add_attribute(std::string_view name, std::string_view value);
  bool add_text(std::string_view text);

  /// Bytes that the tree has taken so far, with those that it has outgrown.
  std::size_t bytes() const { return nodes_.bytes(); }

  /// The finished root element; null until it has closed.
  std::unique_ptr<element> root;
  /// The elements whose end has not been seen, the innermost last.
  array<std::unique_ptr<element>> open;

 private:
  // Up to here a walk through the attributes is faster than an index of them.
  static constexpr std::int32_t kFewAttributes = 16;

  std::int32_t find_among_many(std::string_view name);
  void forget_places() {
    if (!places_.empty()) [[unlikely]]
      places_.clear();
  }

  pool nodes_;
  // Where the innermost element has its attributes, if it has too many to walk through for every new one. A
  // map and not a hash table: no choice of names makes it slow.
  std::map<std::string, std::int32_t, std::less<>> places_;
};

/// The parser of one document. Receiver is `observer`, whatever stands behind it, or `tree_builder`, which is
/// called straight and takes text in whole runs. The observer must outlive the parser.
template <class Receiver>
class parser {
 public:
  explicit parser(Receiver& receiver);
  parser(const parser&) = delete;
  parser& operator=(const parser&) = delete;

  /// Takes one byte through the state table. This is what defines the parser.
  void step(char byte);
  /// Takes bytes until the parser has stopped or there are no more. What the observer is told, and where the
  /// parser then stands, is as with step() for each of them.
  void run(std::string_view data);
  /// Whatever follows does not matter: the root has closed, or the document is malformed.
  bool stopped() const { return state == states::done || state == states::error; }

  Receiver& observer;
  std::int32_t state = states::prolog;
  /// States to come back to.
  array<std::int32_t> stack;
  /// The name of the tag or attribute that is being read; in character data, what a reference stands for.
  ovk::string name;
  /// The value of the attribute that is being read.
  ovk::string value;
  /// The reference that is being read, from its "&" on.
  ovk::string entity;
  /// What takes the reference's replacement: `name`, `value`, or null outside of a reference.
  ovk::string* target = nullptr;

 private:
  std::int32_t pop();
  void fail_unless(bool accepted) {
    if (!accepted) state = states::error;
  }
  void start_reference(ovk::string& to);
  void end_reference(std::string_view replacement);
  void resolve_name();
  void resolve_number();
  void take_run(states::action does, std::string_view bytes);
  const char* take_content(const char* next, const char* end);
  inline const char* take_start_tag(const char* tag, const char* end);
  inline const char* take_end_tag(const char* tag, const char* end);
  const char* take_attributes(const char* next, const char* end);
};

extern template class parser<observer>;
extern template class parser<tree_builder>;

/// A tree that would take more memory is not read. The smallest elements take forty times the room that they
/// have in a document, and attributes sixty times; a program as it is saved takes eight times its room.
inline constexpr std::size_t kMostTreeBytes = std::size_t{192} * 1024 * 1024;

enum class reading { well_formed, malformed, too_large };

/// Parses a document. If its root element has closed `root` holds it, else `root` is as it was.
reading read(element& root, std::string_view document);

/// The same where it does not matter why a document cannot be read: true if it is well-formed.
bool parse(element& root, const char* data, std::size_t length);

// The parser's speed rests on these, which stand here to be compiled into it.

inline bool tree_builder::add_element(std::string_view name) {
  forget_places();
  open.make_room(nodes_);
  open.emplace_back(new (nodes_) element(name, nodes_));
  return true;
}

inline bool tree_builder::add_attribute(std::string_view name, std::string_view value) {
  if (open.empty()) return false;
  array<attribute>& present = open.back()->attributes;
  const std::int32_t place =
      present.count() < kFewAttributes ? open.back()->find_attribute(name) : find_among_many(name);
  if (place >= 0) [[unlikely]] {
    present[place].value = ovk::string(value, nodes_);
  } else {
    present.make_room(nodes_);
    present.emplace_back(name, value, nodes_);
  }
  return true;
}

inline bool tree_builder::add_text(std::string_view text) {
  if (open.empty()) return false;
  open.back()->text.append(text, nodes_);
  return true;
}

}  // namespace ovk::xml
