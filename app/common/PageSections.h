#pragma once

#include <QVBoxLayout>

class QFrame;
class QWidget;

namespace quellbrook {

// Separators of the host's pages.

QFrame* MakeRule(QWidget* parent);
// A caption in gray capitals above a rule.
void AddSection(QVBoxLayout& column, const QString& caption, QWidget* parent);

}  // namespace quellbrook
