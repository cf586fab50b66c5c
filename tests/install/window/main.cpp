// The headers are included in front of this file (CMakeLists.txt).

int main(int count, char** arguments) {
  QApplication application(count, arguments);
  People people;
  QStringList opened;
  QObject::connect(&people, &People::opened, [&](const QString& person) { opened << person; });

  vemra::GetGoalSnapshotResponse answer;
  answer.people = {
      {.personRef = "p1", .displayName = "Ada", .why = vemra::GoalWhyDTO::connection(2)}};
  const auto ignore = [](const auto&) {};
  vemra::qt::ViewWidget screen;
  screen.setOverrides(
      {.locale = "de_DE", .strings = vemra::qt::QtStringsTable::builtIn({QStringLiteral("de")})});
  screen.setRoot(vemra::GoalResultView(
      vemra::GoalResultSnapshotV1(answer), [&](const std::string& person) { people.open(person); },
      ignore, ignore, ignore));
  screen.show();
  foreach (QAbstractButton* button, screen.findChildren<QAbstractButton*>()) {
    if (button->text() == "Ada") button->click();
  }
  std::cout << "Opened: " << opened.join(' ').toStdString() << "\n";
  // The palette turns dark while the window is open, as the system's does in the evening.
  const auto isDark = [&] {
    const QImage page = screen.viewport()->grab().toImage();
    return page.pixelColor(page.width() - 1, page.height() - 1).lightness() < 64;
  };
  std::cout << "Dark: " << isDark();
  QApplication::setPalette(QPalette(QColor(50, 50, 60), QColor(30, 30, 35)));
  QApplication::processEvents();
  std::cout << ", then " << isDark() << "\n";
  auto* record =
      screen.findChild<QAbstractButton*>(QStringLiteral("vemra.goal.person.p1.outcome.start"));
  if (record) std::cout << "Record: " << record->text().toStdString() << "\n";
}
