// What the parts of the program that know no platform do where there is no memory for a block: for the first
// one that they ask for, for the second, and so on until a run comes to its end. It may end what was to be
// done, by an exception; it leaves nothing behind, breaks nothing, and with memory the same works again. A
// program of its own, since it stands in for operator new.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <new>
#include <string>
#include <string_view>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "OvkLib/src/ovk_exception.h"
#include "OvkLib/src/ovk_xml.h"
#include "OvkLib/src/ovk_xml_reader.h"
#include "app/document/undo_stack.h"
#include "chart/chart_drawing.h"
#include "common/files.h"
#include "common/log.h"
#include "common/message.h"
#include "common/xml_file.h"
#include "devices/operations.h"
#include "devices/tc420.h"
#include "devices/tc421.h"
#include "localisation/translation_store.h"
#include "program/builtin_modes.h"
#include "program/change/mode_change.h"
#include "program/figures/figures.h"
#include "program/lmf.h"
#include "program/mode_commands.h"
#include "program/optimize.h"
#include "program/program_file.h"
#include "program/raw.h"
#include "program/settings.h"
#include "program/steps_text.h"
#include "program/tmf.h"
#include "tests/program/program_fixture.h"
#include "tests/support/checking_canvas.h"
#include "tests/support/heap_count.h"
#include "tests/support/run_length.h"
#include "tests/support/sim_hidapi.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/virtual_clock.h"

namespace {

using namespace TCBase::Program;
using testing::IsEmpty;

// What is done, what there is before it, and what must be so behind it however it ended. A text is a long
// one, since a short one takes no memory.

ModeListView GivenTwoModes() {
  ModeListView document = NewProgram();
  document.modes.clear();
  for (const char* const name : {"A mode with a name that takes memory", "Another one with such a name"}) {
    Mode mode = program_test::GivenModeOfMergedSteps(12, 30);
    mode.name = name;
    mode.description = "More text than a string holds without taking memory for it";
    document.modes.push_back(mode);
  }
  return document;
}

std::string XmlOf(const ModeListView& document) {
  ovk::xml::element root;
  BuildProgramXml(document, root);
  ovk::string text;
  ovk::xml::serialize(text, root, 0);
  return std::string(text.view());
}

// The same as a whole document, whatever becomes of it.
bool IsSame(const ModeListView& a, const ModeListView& b) {
  return XmlOf(a) == XmlOf(b);
}

class Memory : public testing::Test {
 protected:
  void SetUp() override { virtual_clock::Reset(); }
  void TearDown() override {
    EmptyTheLogs();
    EXPECT_GT(count_, 0) << "nothing was tried";
    RecordProperty("failed_allocations", static_cast<int>(count_));
    std::printf("%d blocks were refused\n", static_cast<int>(count_));
  }

  static void EmptyTheLogs() {
    for (LogChannel* const log : {&statusLog, &warningLog, &deviceLog}) log->Drain();
  }

  // Runs `action` with each of its blocks refused in turn; `judge` looks at what is left. Both start from
  // scratch.
  void RefuseEachBlock(
      const std::function<void()>& action, const std::function<void()>& judge = [] {}) {
    // What is made once, and kept.
    for (int i = 0; i < 2; ++i) action();
    EmptyTheLogs();
    bool isRefused = true;
    for (std::int64_t n = 1; isRefused; n += IsLongRun() || n < 20 ? 1 : n / 8) {
      const std::int64_t before = heap_count::blocks;
      heap_count::failingAllocation = heap_count::allocations + n;
      const std::int64_t number = heap_count::failingAllocation;
      Attempt(action);
      isRefused = heap_count::allocations >= number;
      heap_count::failingAllocation = 0;
      EmptyTheLogs();
      judge();
      ASSERT_LE(heap_count::blocks, before) << "block " << n << " was refused, and others were left";
      if (isRefused) ++count_;
    }
    action();
    judge();
  }

  static void Attempt(const std::function<void()>& action) {
    try {
      action();
    } catch (const std::bad_alloc&) {
    } catch (const ovk::exception&) {
    }
  }

 private:
  std::int64_t count_ = 0;
};

TEST_F(Memory, OfAParsedTree) {
  const std::string text = XmlOf(GivenTwoModes());
  ovk::xml::element root;
  RefuseEachBlock([&] {
    ovk::xml::element fresh;
    ASSERT_TRUE(ovk::xml::parse(fresh, text.data(), text.size()));
  });
}

TEST_F(Memory, OfAWrittenTree) {
  const ModeListView document = GivenTwoModes();
  RefuseEachBlock([&] { XmlOf(document); });
}

TEST_F(Memory, OfTreesThatAreCopiedAndChanged) {
  ovk::xml::element root;
  BuildProgramXml(GivenTwoModes(), root);
  RefuseEachBlock([&] {
    ovk::xml::element copy = root;
    copy.append_child("a new child with a long name").attribute("and an attribute, too").value =
        ovk::string(std::string_view("whose value is a long text as well"));
    ovk::xml::element other;
    other.swap(copy);
    copy = other.append_child("one more of those children");
  });
}

TEST_F(Memory, OfTextsOfBothKinds) {
  const std::string text = "Ein längerer Text mit Umlauten: äöü, und ein Zeichen außerhalb: 🐠";
  RefuseEachBlock([&] {
    EXPECT_EQ(Utf8FromWide(WideFromUtf8(text)), text);
    const Message message("{1} could not be saved: {2}", text, text);
    EXPECT_FALSE(message.utf8().empty());
    LogStatus(message);
  });
}

TEST_F(Memory, OfAProgramThatIsRead) {
  ovk::xml::element root;
  BuildProgramXml(GivenTwoModes(), root);
  ModeListView document = NewProgram();
  RefuseEachBlock(
      [&] {
        ModeListView read;
        ASSERT_TRUE(ReadProgramXml(root, read));
        document = std::move(read);
      },
      [&] { EXPECT_TRUE(IsSame(document, GivenTwoModes())); });
}

TEST_F(Memory, OfAProgramFile) {
  const TemporaryFolder folder;
  const std::filesystem::path file = folder / "a light program.xml";
  const ModeListView document = GivenTwoModes();
  RefuseEachBlock(
      [&] {
        SaveProgram(document, file);
        ModeListView loaded = NewProgram();
        LoadProgram(file, loaded);
      },
      [&] {
        ModeListView loaded = NewProgram();
        EXPECT_TRUE(LoadProgram(file, loaded));
        EXPECT_TRUE(IsSame(loaded, document));
      });
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1) << "of files beside it";
}

TEST_F(Memory, OfFilesOfOtherTools) {
  const Mode mode = GivenTwoModes().modes[0];
  RefuseEachBlock([&] {
    std::string data;
    Mode read;
    WriteTmf(mode, data);
    ReadTmf(data, read);
    data.clear();
    WriteLmf(mode, data);
    ReadLmf(data, read);
    data.clear();
    WriteRaw(mode, data);
  });
}

TEST_F(Memory, OfCommandsOnModes) {
  const ModeListView document = GivenTwoModes();
  RefuseEachBlock([&] {
    ModeListView changed = document;
    AlignCurrentMode(changed, 30);
    AppendRandomMode(changed);
    OptimizeAllModes(changed);
    OptimizeForTC421(changed);
    ReplaceStepsFromText(changed.modes[0].channels[0], "08:00 0\n09:30 80 J\n18:00 0\n");
    StepsToText(changed.modes[0].channels[0]);
    LogModeSteps(changed);
    FiguresOf(changed.modes[0], {});
  });
}

TEST_F(Memory, OfChangesOfManySteps) {
  const Mode mode = GivenTwoModes().modes[0];
  Mode changed = mode;
  RefuseEachBlock(
      [&] {
        changed = mode;
        ChangeMode(changed, ThinOut{}, {});
        ChangeMode(changed, MirrorTime{}, {});
        ChangeMode(changed, CopyToChannels{}, {});
      },
      [&] {
        for (const Channel& channel : changed.channels)
          for (const Step& step : channel) EXPECT_TRUE(step.hour >= 0 && step.hour < 24);
      });
}

TEST_F(Memory, OfAHistory) {
  ModeListView document = GivenTwoModes();
  RefuseEachBlock([&] {
    app::UndoStack undoStack(document);
    undoStack.Snapshot();
    document.modes[0].channels[0][0].value = 33.0F;
    undoStack.BeginPending();
    document.modes[1].channels[0][0].value = 44.0F;
    undoStack.CommitPending();
    undoStack.Undo();
    undoStack.Undo();
    undoStack.Redo();
  });
}

TEST_F(Memory, OfSettings) {
  const TemporaryFolder folder;
  const std::filesystem::path file = folder / "settings.xml";
  RefuseEachBlock(
      [&] {
        Settings settings(file);
        settings.SetValue("locale", "a long text for a value of a setting");
        settings.SetDeviceValue("device", "a controller with a long name", "and another name for it");
        settings.Save();
      },
      [&] {
        Settings settings(file);
        EXPECT_EQ(settings.GetValue("locale"), "a long text for a value of a setting");
      });
}

TEST_F(Memory, OfTranslations) {
  constexpr std::string_view kDocument =
      "<localisation><languages><language id='de' name='Deutsch'/></languages><strings>"
      "<string id='Channel power of all channels'><de>Die Leistung aller Kanäle</de></string>"
      "</strings></localisation>";
  const TemporaryFolder folder;
  RefuseEachBlock([&] {
    TranslationStore store(kDocument, "<localisation><strings/></localisation>");
    store.SetLanguage("de");
    EXPECT_EQ(store.Translate("Channel power of all channels"), "Die Leistung aller Kanäle");
    store.Translate("A key that the document does not have");
    store.CopyDocuments();
    if (store.ExportTranslationFile(folder / "exported.xml"))
      store.LoadTranslationFile(folder / "exported.xml", "it", "Italiano");
  });
}

TEST_F(Memory, OfAFrameOfTheChart) {
  ModeListView document = GivenTwoModes();
  StepSelection selection{document, 1, 2};
  StepSelection hover{document, 3, 1};
  TCBase::DemoState demo;
  StepGroup group;
  RefuseEachBlock([&] {
    double now = 100.0;
    UX::ChartLayout layout(now);
    layout.Update(1024, 768);
    layout.ShowStrip(true);
    const UX::ChartOverlay overlay{{UX::Comparison::With::Kept, document.modes[1]}, Rect{10, 10, 200, 100}};
    UX::ChartDrawing drawing({document, selection, hover, layout, demo, now, group, overlay});
    chart_test::CheckingCanvas canvas;
    drawing.Rebuild(canvas);
    drawing.MouseMoved(300, 200);
    drawing.Draw(canvas);
  });
}

TEST_F(Memory, OfPackets) {
  const TCBase::DeviceInfo device{TCBase::ModelTC421UDP, "a controller with a long name", {}, true};
  RefuseEachBlock([&] {
    std::string frame;
    TC421::Packet_ModeInit(device, 0, 12, "a mode with a long name").Serialize(frame);
    TC421::Packet_PlayInit(device, "a mode with a long name").Serialize(frame);
  });
}

TEST_F(Memory, OfAnUpload) {
  const ModeListView document = GivenTwoModes();
  const TCBase::DeviceInfo emulator{TCBase::ModelEmulator, TCBase::kEmulatorName, {}, true};
  TCBase::DemoState demo;
  RefuseEachBlock([&] { TCBase::UploadOperation(emulator, document, {demo}); });
}

}  // namespace
