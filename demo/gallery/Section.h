#pragma once

#include "demo/gallery/Specimen.h"

#include <QWidget>

#include <vector>

class QVBoxLayout;

namespace quellbrook::gallery {

// A family of controls: its title, a sentence about it, and rows of cells.
class Section : public QWidget {
    Q_OBJECT

public:
    Section(const QString& title, const QString& sentence, QWidget* parent);

    // Adds a row with a cell for each state of the specimen.
    void AddStates(const Specimen& specimen);
    // Adds a row for specimens of one class, captioned by variant.
    void AddVariants(const QString& control, const QString& note, const std::vector<Specimen>& specimens);
    // Adds widgets of fixed size across the whole width.
    void AddWidgets(const std::vector<QWidget*>& widgets);

private:
    QWidget* AddRow(const QString& control, const QString& note);

    QVBoxLayout* m_rows;
};

}  // namespace quellbrook::gallery
