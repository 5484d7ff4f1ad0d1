#pragma once

#include "family/DeclarationKey.h"
#include "form518/WorkRuns.h"
#include "import/FileSurvey.h"
#include "import/ImportFormat.h"
#include "import/ImportLog.h"
#include "values/Error.h"
#include "values/Message.h"

#include <QFile>
#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <optional>

namespace xa518 {

class DestinoDeRechazos;
class LineasDecididas;
class Lotes;
class ReceptorDeRechazadas;
struct Dictamen;
struct Proceso;

/// How far a run has come.
struct AvanceImportacion {
    qint64 transferidos = 0;
    qint64 rechazados = 0;
    qint64 bytesLeidos = 0;
    qint64 bytesTotal = 0;
};

/// Whoever watches a run: a window, which lets events through and may have been told to cancel, or a progress line.
class ObservadorImportacion {
  public:
    ObservadorImportacion() = default;
    ObservadorImportacion(const ObservadorImportacion&) = delete;
    ObservadorImportacion& operator=(const ObservadorImportacion&) = delete;
    virtual ~ObservadorImportacion() = default;

    /// Called before each line; false cancels the run.
    [[nodiscard]] virtual bool Sigue(const AvanceImportacion& avance) = 0;
};

enum class FinImportacion {
    Completa,
    Cancelada,
    Rechazada, ///< the whole file, before its first line
    Fallida,   ///< by an error of the file or the base
};

struct ResultadoImportacion {
    FinImportacion fin = FinImportacion::Completa;
    /// Lines, not rows. Wanted: a line refused since its voucher is there with another date or amount counts in both.
    qint64 transferidos = 0;
    qint64 rechazados = 0;
    /// What the user is told at the end, nothing after a cancel. With refused lines it is a question, whether to show
    /// the report of errors.
    std::optional<Mensaje> mensaje;
    std::optional<Error> falla; ///< what ended a failed run
    Revision revision;          ///< of a file that was refused whole: what for, and where
    QString detalle;            ///< the same as a sentence
    QString archivo;            ///< bare name of the import file
    QString ruta;               ///< its full name, once it has been found
    QString rutaLog;            ///< of the refused lines; empty when this run has written none, as a trial never does
    QString rutaErr;            ///< of the error list, likewise
    QStringList noConservado;   ///< a sentence for each kind of lines that could not be kept: transferred, or refused
    std::optional<Error> sinTotales; ///< why the clients' totals could not be brought up to date

    /// Whether the run got as far as its lines, so that the work tables may have others than before.
    [[nodiscard]] bool HuboLineas() const { return transferidos + rechazados > 0; }
};

/// How a run differs from the plain one.
struct OpcionesImportacion {
    bool prueba = false;                   ///< every check, and nothing of it is kept: neither rows nor logs
    DestinoDeRechazos* planilla = nullptr; ///< gets the refused lines; must outlive the run
    /// Likewise; of a file that is refused whole it gets the lines that bar it.
    ReceptorDeRechazadas* rechazadas = nullptr;
    bool seDeshace = false; ///< it is noted beside the work tables, so that it can be undone
};

/// One run over one import file: every line is checked and what passes is added to the work tables, whose totals are
/// brought up to date at the end; that they can't be is no failure of the run. What was written before a cancel or an
/// error stays; the last of it may be lost when it is the base's disk that fails. An object serves one run.
class Transferencia {
  public:
    /// Into the declaration of that key, whose work tables are the base's now. `ruta` is the folder of the file, or the
    /// file itself.
    Transferencia(Proceso& proceso, ClaveDeclaracion clave, const FormatoImportacion& formato, QString ruta,
                  const OpcionesImportacion& opciones = {});

    /// Looks the whole file through and imports nothing; the result says `Completa` when a run could start.
    [[nodiscard]] ResultadoImportacion Revisa();

    /// Errors of the file and the base end the run and come back in the result. `alEmpezar` runs once the file has
    /// been found fit as a whole, before its first line: what a refused file must leave alone goes there. In a trial
    /// it runs within the transaction that is undone.
    [[nodiscard]] ResultadoImportacion Corre(ObservadorImportacion& observador,
                                             const std::function<void()>& alEmpezar = {});

    /// Whether the run has left its file open, which then stays so as long as the object is there.
    [[nodiscard]] bool TieneAbierto() const { return m_archivo.isOpen(); }

  private:
    using AlEmpezar = std::function<void()>;

    [[nodiscard]] bool EsApto();
    void ImportaLineas(ObservadorImportacion& observador, const AlEmpezar& alEmpezar);
    void RecorreLineas(ObservadorImportacion& observador, Lotes& lotes, Almacen& almacen);
    [[nodiscard]] bool EmpiezaLote(Almacen& almacen);
    void EscribeLote(Lotes& lotes, Almacen& almacen);
    void EscribeYAdelanta(Lotes& lotes, Almacen& almacen, LineasDecididas& lineas);
    void EscribeApartadas(Lotes& lotes, Almacen& almacen);
    void AnotaFin(FinDeCorrida fin);
    [[nodiscard]] bool Conserva(Lotes& lotes, Almacen& almacen);
    void RechazaEscritas(const QList<qint64>& lineas);
    void Pierde(qint64 lineas, QString (*frase)(qint64 perdidas, qint64 conservadas));
    void AnotaLinea(QByteArrayView bytes, const Dictamen& dictamen);
    void Rechaza(QByteArrayView bytes, const Refutacion& refutacion);
    void RechazaEntero();
    [[nodiscard]] QString ClaveDe(QByteArrayView bytes) const;
    void AnotaEnPlanilla(QByteArrayView bytes, const Refutacion& refutacion);
    [[nodiscard]] const QString& Motivo(Codigo codigo);
    void CalcularTot();
    void Falla(const Error& error);
    void Cierra();
    [[nodiscard]] Mensaje MensajeFinal() const;

    Proceso& m_proceso;
    ClaveDeclaracion m_clave;
    const FormatoImportacion& m_formato;
    QString m_ruta;
    OpcionesImportacion m_opciones;
    ContextoImportacion m_contexto;
    QFile m_archivo;
    Revision m_revision;
    LogImportacion m_log;
    std::optional<int> m_corrida; ///< under which it is noted
    ResultadoImportacion m_resultado;
    qint64 m_numeroLinea = 0;            ///< of the current line, from 1
    std::map<Codigo, QString> m_motivos; ///< of the codes met so far
};

} // namespace xa518
