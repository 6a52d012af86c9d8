// Reading and writing XML, against the libraries one would take instead. Bytes per second are those of the
// document as it stands in its file.

#include <benchmark/benchmark.h>
#include <expat.h>
#include <tinyxml2.h>

#include <cstdlib>
#include <pugixml.hpp>
#include <string>
#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "OvkLib/src/ovk_xml.h"
#include "OvkLib/src/ovk_xml_reader.h"
#include "tests/OvkLib/hostile_xml.h"

namespace {

#ifdef __GLIBC__
// Memory that was freed stays with the process: the libraries are to be measured, not the kernel's page
// faults.
[[maybe_unused]] const bool kMemoryStays =
    mallopt(M_TRIM_THRESHOLD, 1 << 30) != 0 && mallopt(M_MMAP_THRESHOLD, 1 << 30) != 0;
#endif

// A light program of 64 modes with 5 channels of 48 steps, as it is saved: short attributes and nothing else.
std::string ProgramDocument() {
  std::string out = "<modelist>\r\n";
  for (int mode = 0; mode < 64; ++mode) {
    out += "  <mode name='PRG" + std::to_string(mode) + "'>\r\n";
    for (int channel = 0; channel < 5; ++channel) {
      out += "    <channel>\r\n";
      for (int step = 0; step < 48; ++step) {
        out += "      <step hour='" + std::to_string(step / 2) + "' minute='" +
               std::to_string(step % 2 * 30) + "' value='" + std::to_string((step * 7 + channel * 13) % 101) +
               "' jump='" + std::to_string(step % 3 == 0) + "'/>\r\n";
      }
      out += "    </channel>\r\n";
    }
    out += "  </mode>\r\n";
  }
  return out + "</modelist>\r\n";
}

// 230 sentences in eight languages: text, some of it with references and with bytes above 127.
std::string TranslationsDocument() {
  static constexpr const char* kLanguages[] = {"de", "fr", "es", "it", "nl", "pl", "pt", "sv"};
  std::string out = "<localisation>\r\n";
  for (int entry = 0; entry < 230; ++entry) {
    const std::string number = std::to_string(entry);
    out += std::string("  <string key='Cannot write to ") + (entry % 4 == 0 ? "&quot;{1}&quot;" : "{1}") +
           ": step " + number + "'>\r\n";
    for (const char* language : kLanguages) {
      out += std::string("    <") + language + ">Die Datei {1} l\xC3\xA4sst sich nicht schreiben (" + number +
             (entry % 8 == 0 ? ") &amp; so" : ")") + "</" + language + ">\r\n";
    }
    out += "  </string>\r\n";
  }
  return out + "</localisation>\r\n";
}

const std::string kDocuments[] = {ProgramDocument(), TranslationsDocument()};
constexpr const char* kLabels[] = {"program", "translations"};

const std::string& DocumentOf(benchmark::State& state) {
  const auto index = static_cast<size_t>(state.range(0));
  state.SetLabel(kLabels[index]);
  return kDocuments[index];
}

void CountBytes(benchmark::State& state, size_t documentSize) {
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(documentSize));
}

void ParseOvk(benchmark::State& state) {
  const std::string& document = DocumentOf(state);
  for (auto _ : state) {
    ovk::xml::element root;
    if (!ovk::xml::parse(root, document.data(), document.size())) state.SkipWithError("not parsed");
    benchmark::DoNotOptimize(root);
  }
  CountBytes(state, document.size());
}

void ParsePugixml(benchmark::State& state) {
  const std::string& document = DocumentOf(state);
  for (auto _ : state) {
    pugi::xml_document tree;
    if (!tree.load_buffer(document.data(), document.size())) state.SkipWithError("not parsed");
    benchmark::DoNotOptimize(tree);
  }
  CountBytes(state, document.size());
}

void ParseTinyxml2(benchmark::State& state) {
  const std::string& document = DocumentOf(state);
  for (auto _ : state) {
    tinyxml2::XMLDocument tree;
    if (tree.Parse(document.data(), document.size()) != tinyxml2::XML_SUCCESS)
      state.SkipWithError("not parsed");
    benchmark::DoNotOptimize(tree);
  }
  CountBytes(state, document.size());
}

// Expat builds no tree: this is the cost of its callbacks alone.
void ParseExpat(benchmark::State& state) {
  const std::string& document = DocumentOf(state);
  for (auto _ : state) {
    size_t met = 0;
    XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetUserData(parser, &met);
    XML_SetElementHandler(
        parser, [](void* to, const char*, const char**) { ++*static_cast<size_t*>(to); },
        [](void* to, const char*) { ++*static_cast<size_t*>(to); });
    XML_SetCharacterDataHandler(parser, [](void* to, const char*, int length) {
      *static_cast<size_t*>(to) += static_cast<size_t>(length);
    });
    if (XML_Parse(parser, document.data(), static_cast<int>(document.size()), 1) != XML_STATUS_OK) {
      state.SkipWithError("not parsed");
    }
    XML_ParserFree(parser);
    benchmark::DoNotOptimize(met);
  }
  CountBytes(state, document.size());
}

void SerializeOvk(benchmark::State& state) {
  const std::string& document = DocumentOf(state);
  ovk::xml::element root;
  ovk::xml::parse(root, document.data(), document.size());
  ovk::xml::trim(root);
  for (auto _ : state) {
    ovk::string out;
    ovk::xml::serialize(out, root, 0);
    if (out.view() != document) state.SkipWithError("not what was read");
    benchmark::DoNotOptimize(out);
  }
  CountBytes(state, document.size());
}

struct StringWriter final : pugi::xml_writer {
  void write(const void* data, size_t size) override { out.append(static_cast<const char*>(data), size); }
  std::string out;
};

void SerializePugixml(benchmark::State& state) {
  const std::string& document = DocumentOf(state);
  pugi::xml_document tree;
  tree.load_buffer(document.data(), document.size());
  for (auto _ : state) {
    StringWriter writer;
    tree.save(writer, "  ", pugi::format_default | pugi::format_no_declaration);
    benchmark::DoNotOptimize(writer.out);
  }
  CountBytes(state, document.size());
}

void SerializeTinyxml2(benchmark::State& state) {
  const std::string& document = DocumentOf(state);
  tinyxml2::XMLDocument tree;
  tree.Parse(document.data(), document.size());
  for (auto _ : state) {
    tinyxml2::XMLPrinter printer;
    tree.Print(&printer);
    benchmark::DoNotOptimize(printer.CStr());
  }
  CountBytes(state, document.size());
}

// Sixteen megabytes of a shape that nobody writes by accident, which is as long as files may be; with the
// destruction of what was read.
void ReadHostile(benchmark::State& state) {
  constexpr size_t kBytes = size_t{16} * 1024 * 1024;
  const hostile_xml::Shape& shape = hostile_xml::kShapes[static_cast<size_t>(state.range(0))];
  const std::string document = hostile_xml::Document(shape, kBytes);
  const char* outcome = "";
  for (auto _ : state) {
    ovk::xml::element root;
    const ovk::xml::reading read = ovk::xml::read(root, document);
    if (read == ovk::xml::reading::well_formed) ovk::xml::trim(root);
    outcome = read == ovk::xml::reading::well_formed ? ""
              : read == ovk::xml::reading::malformed ? ", malformed"
                                                     : ", refused";
  }
  state.SetLabel(std::string(shape.name) + outcome);
}

BENCHMARK(ReadHostile)
    ->DenseRange(0, static_cast<int64_t>(hostile_xml::kShapes.size()) - 1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ParseOvk)->DenseRange(0, 1);
BENCHMARK(ParsePugixml)->DenseRange(0, 1);
BENCHMARK(ParseTinyxml2)->DenseRange(0, 1);
BENCHMARK(ParseExpat)->DenseRange(0, 1);
BENCHMARK(SerializeOvk)->DenseRange(0, 1);
BENCHMARK(SerializePugixml)->DenseRange(0, 1);
BENCHMARK(SerializeTinyxml2)->DenseRange(0, 1);

}  // namespace
