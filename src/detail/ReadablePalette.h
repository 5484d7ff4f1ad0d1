#pragma once

class QWidget;

namespace xa518 {

/// Makes what is disabled in a form readable: a sent declaration is looked at through disabled fields, and a palette's
/// own grey is meant for what needs no reading.
void AclaraDeshabilitados(QWidget& forma);

} // namespace xa518
