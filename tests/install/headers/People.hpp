#pragma once

#include <string>

#include <QObject>
#include <QString>

/// A host's own class, with Qt's keywords.
class People : public QObject {
  Q_OBJECT

 signals:
  void opened(const QString& person);

 public slots:
  void open(const std::string& person) { emit opened(QString::fromStdString(person)); }
};
