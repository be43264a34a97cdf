#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

// Real widgets, drawn off screen. The runtime folder is the run's own, so that nothing of the
// machine's shows.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QTemporaryDir runtime;
  QFile::setPermissions(runtime.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_LOGGING_RULES", "qt.qpa.*=false;default.debug=false");
  return RUN_ALL_TESTS();
}
