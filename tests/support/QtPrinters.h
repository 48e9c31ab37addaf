#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <ostream>

// How GoogleTest shows Qt's texts when an expectation fails.

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QByteArray& bytes, std::ostream* out) {
    *out << '"' << bytes.toStdString() << '"';
}
