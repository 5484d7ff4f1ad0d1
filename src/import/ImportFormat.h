#pragma once

#include "form518/WorkAdditions.h"
#include "import/FieldChecks.h"
#include "import/ImportRate.h"

#include <QVarLengthArray>

#include <memory>
#include <span>

namespace xa518 {

/// Codes of what the tables have against a line, in the order in which they were met; none when all of it was written.
using Objeciones = QVarLengthArray<Codigo, 3>;
inline constexpr Codigo kClaveDuplicada{"0228"};

/// Adds accepted lines to the work tables, a batch of them at a time.
class Almacen {
  public:
    Almacen(Base& base, Periodo declarado, Periodo primerIgv) : m_tablas(base), m_tasas(base, declarado, primerIgv) {}
    Almacen(const Almacen&) = delete;
    Almacen& operator=(const Almacen&) = delete;
    virtual ~Almacen() = default;

    /// Before the first line of a batch, within its transaction. Tells whether what had been taken before for that
    /// batch is forgotten; see `AltasTrabajo::Empieza`.
    bool Empieza() { return m_tablas.Empieza(); }

    /// Whether `Guarda` takes a line without asking the base, so that it may run beside a thread that writes there.
    [[nodiscard]] bool SinBase(const LineaComprobada& linea) const { return m_tasas.Conoce(linea); }

    /// Takes the rows of a line, `numero` in its file, as far as the tables have nothing against them. Raises `Error`
    /// for a failure that ends the run.
    [[nodiscard]] virtual Objeciones Guarda(const LineaComprobada& linea, qint64 numero) = 0;

    /// Forgets, sets apart and writes the rows taken; see `AltasTrabajo`.
    void Olvida(qint64 desdeLinea) { m_tablas.Olvida(desdeLinea); }
    void Aparta() { m_tablas.Aparta(); }
    [[nodiscard]] QList<qint64> EscribeApartadas() { return m_tablas.EscribeApartadas(); }

  protected:
    // NOLINTBEGIN(cppcoreguidelines-non-private-member-variables-in-classes)
    AltasTrabajo m_tablas;
    TasaImportacion m_tasas;
    // NOLINTEND(cppcoreguidelines-non-private-member-variables-in-classes)
};

/// A field as whoever makes a file has to know it.
struct DescripcionCampo {
    QStringView nombre;
    QStringView obligatorio; ///< whether, or for whom
    QStringView forma;       ///< what it may hold
};

/// What tells one kind of import file from another: its name, its fields with their checks, and its tables.
struct FormatoImportacion {
    QLatin1StringView finDeNombre;                ///< what the file's name has behind the period
    std::span<const Comprobacion> comprobaciones; ///< one for each field of a line, in file order
    std::unique_ptr<Almacen> (*almacen)(Base& base, Periodo declarado, Periodo primerIgv);
    TiposDeVenta (*tipos)(Base& base); ///< reads what the checks ask of the catalogue; missing when they ask nothing
    QStringView titulo;                ///< what such files are called to a person
    std::span<const DescripcionCampo> descripciones; ///< one for each field, in file order
    QStringView ejemplo;                             ///< a line that passes in October 2026

    [[nodiscard]] int Campos() const { return static_cast<int>(comprobaciones.size()); }
};

} // namespace xa518
