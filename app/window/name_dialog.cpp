#include "app/window/name_dialog.h"

#include "common/message.h"

namespace app {

Point DialogPlace(const Rect& anchor) {
  return {anchor.x + 50, anchor.y + 50};
}

Point DialogPlaceAbove(const Rect& anchor) {
  return {anchor.x + 50, anchor.y - 90};
}

dialogs::ModeNameParams NameDialog(const NameDialogTexts& texts, const Point& place) {
  dialogs::ModeNameParams params;
  params.maxLength = texts.maxLength;
  params.x = place.x;
  params.y = place.y;
  params.title = Message(texts.title).ToWide();
  params.nameLabel = Message(texts.nameLabel).ToWide();
  params.descriptionLabel = Message(texts.descriptionLabel).ToWide();
  params.okText = Message("OK").ToWide();
  params.cancelText = Message("Cancel").ToWide();
  return params;
}

}  // namespace app
