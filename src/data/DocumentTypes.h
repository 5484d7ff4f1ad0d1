#pragma once

#include "data/CatalogLayout.h"
#include "values/DocumentCode.h"

#include <QList>
#include <QString>

#include <optional>

namespace xa518 {

class Base;

/// A row of the catalogue of document types, cut out of its fixed columns.
struct TipoDocumento {
    CodigoDocumento codigo;
    QString corto;        ///< short name, 11 characters at most
    QString lenDoc;       ///< length of the number, two characters as the row has them
    QString tipoDato;     ///< column 128, "0" or another
    QString tipoLongitud; ///< column 130, "0" a maximum, otherwise exact

    [[nodiscard]] int Largo() const; ///< of the number; 0 when the row tells none
};

/// The document types whose row has a "1" in the column of a use, in the order of their sort key.
[[nodiscard]] QList<TipoDocumento> DocumentosOfrecidos(Base& base, const Tramo& uso);

/// The type of a code, nothing when the catalogue lacks it.
[[nodiscard]] std::optional<TipoDocumento> DocumentoDeTipo(Base& base, CodigoDocumento codigo);

/// Tells whether a number, not empty, fits a document type.
[[nodiscard]] bool AdmiteNumero(const TipoDocumento& tipo, const QString& numero);

/// The document by which somebody is known.
struct Documento {
    CodigoDocumento tipo;
    QString numero;
};

/// Tells whether a document number fits its type in the catalogue: length by columns 46 and 130, and by column 128
/// digits only ("0") or letters allowed.
[[nodiscard]] bool ValidaDocumento(Base& base, const Documento& documento);

/// The type of a declarant's number: the catalogue's row of the RUC, or what stands in for it when it is missing.
[[nodiscard]] TipoDocumento TipoDelRuc(Base& base);

} // namespace xa518
