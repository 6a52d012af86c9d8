#include "app/window/name_dialog.h"

namespace app {

Position DialogPlace(const Rect& anchor) {
  return {anchor.x + 50, anchor.y + 50};
}

Position DialogPlaceAbove(const Rect& anchor) {
  return {anchor.x + 50, anchor.y - 90};
}

dialogs::ModeNameParams NameDialog(const NameQuestion& question, const Position& place) {
  dialogs::ModeNameParams params;
  params.maxLength = question.maxLength;
  params.x = place.x;
  params.y = place.y;
  params.title = Message(question.title).ToWide();
  params.nameLabel = Message(question.nameLabel).ToWide();
  params.descriptionLabel = Message(question.descriptionLabel).ToWide();
  params.okText = Message("OK").ToWide();
  params.cancelText = Message("Cancel").ToWide();
  return params;
}

}  // namespace app
