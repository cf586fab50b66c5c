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
  screen.setRoot(vemra::GoalResultView(
      vemra::GoalResultSnapshotV1(answer), [&](const std::string& person) { people.open(person); },
      ignore, ignore, ignore));
  screen.show();
  foreach (QAbstractButton* button, screen.findChildren<QAbstractButton*>()) {
    if (button->text() == "Ada") button->click();
  }
  std::cout << "Opened: " << opened.join(' ').toStdString() << "\n";
}
