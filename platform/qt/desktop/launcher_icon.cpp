#include "platform/qt/desktop/launcher_icon.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QGuiApplication>
#include <QVariantMap>

namespace qt {

void ShowOnLauncherIcon(const app::WorkSign& sign) {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  QDBusMessage message = QDBusMessage::createSignal(
      QStringLiteral("/com/canonical/unity/launcherentry/lumarine"),
      QStringLiteral("com.canonical.Unity.LauncherEntry"), QStringLiteral("Update"));
  const QString program = QStringLiteral("application://%1.desktop").arg(QGuiApplication::desktopFileName());
  message << program
          << QVariantMap{{QStringLiteral("progress-visible"), sign.kind != app::WorkSign::None},
                         {QStringLiteral("progress"), sign.percent / 100.0}};
  bus.send(message);
}

}  // namespace qt
