#pragma once

#include "import/CheckedLine.h"
#include "import/FileSurvey.h"

#include <QByteArrayView>
#include <QString>

namespace xa518 {

/// Why a line doesn't pass. Without a code the line as such bars its whole file, and its fields haven't been looked at.
struct FallaDeLinea {
    Codigo codigo;
    int campo = -1; ///< the field at fault; -1 for the line as a whole
    QString motivo;

    bool operator==(const FallaDeLinea&) const = default;
};

/// A line as a run refuses it.
struct LineaRefutada {
    qint64 numero = 0;    ///< in its file, from 1
    QByteArrayView bytes; ///< as they stand in the file, without its end; they hold for the moment
    Codificacion codificacion = Codificacion::Utf8;
    FallaDeLinea falla;
};

/// Gets the refused lines of a run, in the run's thread, as they come: mostly in the order of the file, and one of them
/// twice when the tables have two things against it. Nothing that befalls it may end the run.
class ReceptorDeRechazadas {
  public:
    ReceptorDeRechazadas() = default;
    ReceptorDeRechazadas(const ReceptorDeRechazadas&) = delete;
    ReceptorDeRechazadas& operator=(const ReceptorDeRechazadas&) = delete;
    virtual ~ReceptorDeRechazadas() = default;

    virtual void Recibe(const LineaRefutada& linea) = 0;
    /// There are lines that can't be handed over; those that were are not all.
    virtual void Desiste() = 0;
};

} // namespace xa518
