#pragma once

// Documents that nobody writes by accident, each of the shape that takes the most memory of its kind. The
// last is the one that is written by accident: a program as it is saved.

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace hostile_xml {

struct Shape {
  std::string_view name;
  std::string_view begin;   // once
  std::string_view repeat;  // as often as there is room
  std::string_view end;     // once
};

inline constexpr std::array kShapes = {
    Shape{"empty elements", "<a>", "<a/>", "</a>"},
    Shape{"elements in elements", "<a>", "<a>", "</a>"},
    Shape{"elements with one attribute", "<a>", "<a a=''/>", "</a>"},
    // One more than there was room for.
    Shape{"elements with many attributes", "<a>",
          "<a a=''b=''c=''d=''e=''f=''g=''h=''i=''j=''k=''l=''m=''n=''o=''p=''q=''/>", "</a>"},
    Shape{"long names", "<a>", "<abcdefghijklmnopq abcdefghijklmnopq='abcdefghijklmnopq'/>", "</a>"},
    Shape{"short texts", "<a>", "<a>a</a>", "</a>"},
    Shape{"texts of seventeen bytes", "<a>", "<a>aaaaaaaaaaaaaaaaa</a>", "</a>"},
    Shape{"one long text", "<a>", "aaaaaaaaaaaaaaaa", "</a>"},
    Shape{"one long text in pieces", "<a>", "&lt;aaaa<!---->", "</a>"},
    Shape{"references", "<a>", "&#x10FFFF;", "</a>"},
    Shape{"one long value with references", "<a a='", "&lt;aaaa", "'/>"},
    Shape{"a reference without an end", "<a>&", "aaaaaaaa", "</a>"},
    Shape{"a long name", "<", "aaaaaaaa", "/>"},
    Shape{"comments", "<a>", "<!-- -->", "</a>"},
    Shape{"sections", "<a>", "<![CDATA[]]>", "</a>"},
    Shape{"steps", "<modelist><mode><channel>", "      <step hour='0' minute='0' value='0' jump='0'/>\r\n",
          "</channel></mode></modelist>"},
};

/// A document of a shape with about so many bytes.
inline std::string Document(const Shape& shape, std::size_t bytes) {
  std::string document(shape.begin);
  document.reserve(bytes + shape.repeat.size() + shape.end.size());
  while (document.size() < bytes) document += shape.repeat;
  return document += shape.end;
}

}  // namespace hostile_xml
