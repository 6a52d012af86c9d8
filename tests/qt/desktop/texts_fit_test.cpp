// What the window and the forms of its dialogs say in each language, measured in the controls that say it, in
// the font of the desktop here. What is filled in when a dialog opens is measured on Windows; the units are
// the same.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFontMetrics>

#include <filesystem>
#include <optional>
#include <string>

#include "app/window/control_table.h"
#include "common/files.h"
#include "common/message.h"
#include "dialogs/dialog_template.h"
#include "localisation/translation_store.h"
#include "platform/qt/desktop/control_widgets.h"
#include "platform/qt/desktop/dialog_units.h"
#include "platform/qt/desktop/single_line_label.h"
#include "platform/qt/desktop/text.h"
#include "program/settings.h"

namespace {

using app::Control;
using dialogs::ControlKind;

// Of a button and of a heading, on each side.
constexpr int kButtonEdge = 4;

class QtTextsFit : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    const std::filesystem::path resources = std::filesystem::path(LUMARINE_SOURCE_DIR) / "resources";
    std::string document;
    std::string more;
    ASSERT_TRUE(ReadFileBytes(resources / "translations.xml", document));
    ASSERT_TRUE(ReadFileBytes(resources / "translations-more.xml", more));
    store_.emplace(document, more);
    store_->AnswerMessages();
    store_->SetLanguage(GetParam());
  }

  void ExpectLabelToFit(Control label, const std::string& text) {
    const Rect place = app::RowOf(label).place.In(app::kLeastWindowWidth, app::kLeastWindowHeight);
    qt::SingleLineLabel shown(nullptr);
    shown.setFont(qt::ControlFont());
    shown.resize(place.width, place.height);
    shown.SetWholeText(QString::fromStdString(text));
    EXPECT_TRUE(shown.IsWhole()) << text;
    EXPECT_LE(font_.height(), place.height) << text;
  }

  void ExpectToFit(const dialogs::ControlTemplate& row, const QString& text, QSize room) {
    const bool isLabel = row.kind == ControlKind::Label;
    const QSize inside = isLabel ? room : room - QSize(2 * kButtonEdge, 0);
    const QRect taken =
        font_.boundingRect(QRect(QPoint(), inside), isLabel ? Qt::TextWordWrap : Qt::TextSingleLine, text);
    EXPECT_LE(taken.width(), inside.width()) << text.toStdString();
    EXPECT_LE(taken.height(), inside.height()) << text.toStdString();
  }

  const QFontMetrics font_{qt::ControlFont()};
  std::optional<TranslationStore> store_;
};

TEST_P(QtTextsFit, LabelsOfTheMainWindow) {
  for (const Control label :
       {Control::DemoStatusLabel, Control::PowerTitleLabel, Control::DevicesLabel, Control::ZoomLabel}) {
    ExpectLabelToFit(label, Translate(app::RowOf(label).text));
  }
  ExpectLabelToFit(Control::DemoStatusLabel, Message("Ready ({1}s)", Settings::kMaxDemoSpeed).utf8());
  ExpectLabelToFit(Control::DemoStatusLabel, Translate("Paused"));
  ExpectLabelToFit(Control::DemoStatusLabel, Translate("Playing"));
  ExpectLabelToFit(Control::TimeLabel, "23:59:59");
  ExpectLabelToFit(Control::PowerLabel, "100 100 100 100 100");
}

TEST_P(QtTextsFit, FormsOfTheDialogs) {
  const qt::DialogUnits units(font_);
  int texts = 0;
  for (const dialogs::DialogTemplate& form : dialogs::Templates()) {
    SCOPED_TRACE("dialog " + std::to_string(form.number));
    for (const dialogs::ControlTemplate& row : form.controls) {
      if (row.text.empty()) continue;
      const QString text = QString::fromStdString(Translate(row.text));
      ExpectToFit(row, qt::WithoutMnemonics(text), units.Pixels(row.place.In(0, 0), row.kind).size());
      ++texts;
    }
  }
  EXPECT_GT(texts, 20);
}

INSTANTIATE_TEST_SUITE_P(Languages, QtTextsFit,
                         testing::Values("en", "de", "sk", "it", "cz", "fr01", "fr", "pl", "es"),
                         [](const auto& tested) { return std::string(tested.param); });

}  // namespace
