#pragma once

// The XML tree and its writer. The reader is in ovk_xml_reader.h; files are read and written in
// common/xml_file.h.
//
// A tree may be as deep as a document of some megabytes makes it: nothing here recurses.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "OvkLib/src/ovk_array.h"
#include "OvkLib/src/ovk_pool.h"
#include "OvkLib/src/ovk_string.h"

namespace ovk::xml {

struct attribute {
  explicit attribute(std::string_view itsName) : name(itsName) {}
  attribute(std::string_view itsName, std::string_view itsValue, pool& from)
      : name(itsName, from), value(itsValue, from) {}

  ovk::string name;
  ovk::string value;
};

/// One element with everything below it. It owns its children, which are destroyed with it, from the last to
/// the first. Names are compared byte for byte; lookups walk the list from the front.
///
/// A pointer to an element stays good while siblings are added. A reference to an attribute stays good until
/// another attribute is added to the same element.
class element {
 public:
  element() = default;
  explicit element(std::string_view tag) : name(tag) {}
  element(std::string_view tag, pool& from) : name(tag, from) {}
  /// Copies the whole subtree. Moving and swapping exchange contents and leave the subtrees where they are.
  element(const element& other);
  element(element&& other) noexcept { swap(other); }
  element& operator=(element other) noexcept {
    swap(other);
    return *this;
  }
  ~element();
  void swap(element& other) noexcept;

  /// Elements come by the ten thousand: a reader takes them from a pool.
  static void* operator new(std::size_t size) { return pool::take_alone(size); }
  static void* operator new(std::size_t size, pool& from) { return from.take(size); }
  static void operator delete(void* block) noexcept { pool::release(block); }
  static void operator delete(void* block, pool&) noexcept { pool::release(block); }

  /// The index of the attribute, or -1.
  std::int32_t find_attribute(std::string_view attributeName) const noexcept {
    for (std::int32_t i = 0; i < attributes.count(); ++i) {
      if (attributes[i].name == attributeName) return i;
    }
    return -1;
  }
  /// The attribute's value, or an empty text. The reference is good while the attribute is there.
  const ovk::string& attribute_or_empty(std::string_view attributeName) const noexcept;
  /// The attribute; if absent it is added behind the others, with an empty value.
  xml::attribute& attribute(std::string_view attributeName);
  /// The attribute as a decimal number: 0 if absent, empty or not a number, the nearest limit of its type
  /// if it is out of range. Reading stops at the first character that is no digit.
  std::int32_t get_int(std::string_view attributeName) const noexcept;

  /// The index of the first child with this tag behind the index `after`, or -1. With `after` -1, the first
  /// of all.
  std::int32_t find_next_child(std::string_view tag, std::int32_t after) const noexcept;
  /// The first child with this tag; if absent it is added behind the others.
  element& child(std::string_view tag);
  /// The first child with this tag whose attribute "id" is `id`, or null.
  element* find_child_by_id(std::string_view tag, std::string_view id) noexcept;
  const element* find_child_by_id(std::string_view tag, std::string_view id) const noexcept;

  /// Takes the contents of `detached`, which is left empty, into a new last child.
  element& add_child(element&& detached);
  /// A new, empty last child, whether or not there is one with this tag.
  element& append_child(std::string_view tag);
  /// Sets the tag.
  void assign(std::string_view tag) { name.assign(tag.data(), static_cast<std::int32_t>(tag.size())); }

  ovk::string name;
  /// All character data of the element in one, the pieces between its children joined.
  ovk::string text;
  array<std::unique_ptr<element>> children;
  /// The attributes in order of first appearance. No two have the same name.
  array<xml::attribute> attributes;
};

/// Removes blanks, tabs, line ends, vertical tabs and form feeds from both ends of every text in the tree.
/// Tags and attributes stay as they are.
void trim(element& root);

/// Appends the tree to `out`, one element per line with two more blanks of indentation per level, CR LF as
/// line end, attribute values in apostrophes. A text that begins with "<![CDATA[" goes out as it stands.
/// `indent` is the number of blanks in front of the first line; below zero it counts as none.
///
/// The indentation makes the output of a chain of n elements grow with the square of n. What does not fit
/// into a string raises xout_of_memory, with `out` holding the beginning.
void serialize(ovk::string& out, const element& root, std::int32_t indent);

}  // namespace ovk::xml
