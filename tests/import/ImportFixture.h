#pragma once

#include "family/Process.h"
#include "form518/Form0518.h"
#include "import/Formats.h"
#include "import/ImportRun.h"
#include "platform/Clock.h"
#include "support/TemporaryBase.h"

#include <gmock/gmock.h>

#include <functional>

namespace xa518::prueba {

using Cambios = QMap<Campo, QString>;

/// A line that passes every check in period 202610, a person's, with changes; without its end.
[[nodiscard]] QString LineaDe(const Cambios& cambios = {});
/// The same fields as a line of a file of cash sales.
[[nodiscard]] QString VentaDe(const Cambios& cambios = {});
/// A file of so many lines, each with a voucher of its own.
[[nodiscard]] QByteArray Muchas(int cuantas);
/// The changes that make it a company's, and more of them.
[[nodiscard]] Cambios Empresa(const Cambios& cambios = {});

/// An open declaration with its base, folder and rates, in which files are imported.
class Escenario {
  public:
    explicit Escenario(const QString& periodo = QStringLiteral("202610"),
                       const FormatoImportacion& formato = FormatoPercepciones());

    /// Writes the import file of the declaration.
    void Escribe(const QByteArray& bytes) const;
    /// Writes lines as the file and imports it.
    ResultadoImportacion Importa(const QStringList& lineas);
    ResultadoImportacion Importa(const QByteArray& bytes);
    /// Imports what is there; `antesDeLinea` gets the number of lines done and tells whether to go on.
    ResultadoImportacion Corre(const std::function<bool(int)>& antesDeLinea = [](int) { return true; });

    [[nodiscard]] QString RutaArchivo() const;
    /// Rows of the three work tables: clients, vouchers, payment vouchers.
    [[nodiscard]] QList<int> Cuenta() const;

    BaseTemporal base;
    RelojFijo reloj{QDateTime(QDate(2026, 11, 21), QTime(10, 0))};
    Proceso proceso{reloj, {Formulario0518()}, kNumFormulario};
    ClaveDeclaracion clave;
    OpcionesImportacion opciones;

  private:
    const FormatoImportacion& m_formato;
};

} // namespace xa518::prueba
