#include "import/CorrectionRun.h"

#include "import/ImportFile.h"
#include "import/RunMessages.h"
#include "values/FileFailure.h"
#include "values/Progress.h"

#include <QHash>
#include <QTemporaryDir>

namespace xa518 {

namespace {

/// What the run says of each line of its file, by the line's number.
class FallasDeCorrida final : public ReceptorDeRechazadas {
  public:
    void Recibe(const LineaRefutada& linea) override {
        if (!m_fallas.contains(linea.numero))
            m_fallas.insert(linea.numero, linea.falla);
    }
    void Desiste() override {}

    [[nodiscard]] std::optional<FallaDeLinea> De(qint64 numero) const {
        const auto falla = m_fallas.constFind(numero);
        return falla == m_fallas.cend() ? std::nullopt : std::optional(*falla);
    }

  private:
    QHash<qint64, FallaDeLinea> m_fallas;
};

/// To stop is to cancel the import, which keeps what has been imported.
class HastaQueDetengan final : public ObservadorImportacion {
  public:
    explicit HastaQueDetengan(Avance& avance) : m_avance(avance) {}
    bool Sigue(const AvanceImportacion& avance) override {
        try {
            m_avance.Va(avance.bytesLeidos, avance.bytesTotal);
        } catch (const Detenido&) {
            return false;
        }
        return true;
    }

  private:
    Avance& m_avance;
};

/// Writes the lines that a file may have; gives them back in its order. The others get their verdict.
QList<int> EscribeLineas(const Correccion& correccion, const QList<int>& lineas, const QString& ruta,
                         QList<VeredictoDeLinea>& veredictos) {
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::WriteOnly))
        throw FallaDeArchivo(Intento::Escribir, archivo);
    const int campos = correccion.Formato().Campos();
    QList<int> escritas;
    for (const int cual : lineas) {
        const QByteArray bytes = correccion.Texto(cual).toUtf8();
        const Defecto defecto = DefectoDeLinea(bytes, campos);
        if (defecto != Defecto::Ninguno) {
            veredictos.append({cual, FallaDeLinea{{}, -1, MotivoDeLinea(defecto, campos)}});
            continue;
        }
        if (archivo.write(bytes + '\n') < 0)
            throw FallaDeArchivo(Intento::Escribir, archivo);
        escritas.append(cual);
    }
    if (!archivo.flush())
        throw FallaDeArchivo(Intento::Escribir, archivo);
    return escritas;
}

/// Wanted: a line that meets its voucher with other data counts as transferred too; see `ResultadoImportacion`.
bool CuentaComoTransferida(const std::optional<FallaDeLinea>& falla) {
    return !falla || (falla->campo < 0 && falla->codigo != kClaveDuplicada);
}

/// A run that didn't come to its end has kept the first lines that it counts as transferred.
void Juzga(const QList<int>& escritas, const FallasDeCorrida& fallas, DesenlaceDeCorreccion& desenlace) {
    const ResultadoImportacion& resultado = desenlace.resultado;
    if (resultado.fin == FinImportacion::Rechazada)
        return;
    qint64 transferidas = 0;
    for (qsizetype i = 0; i < escritas.size(); ++i) {
        const std::optional<FallaDeLinea> falla = fallas.De(i + 1);
        const bool conservada = resultado.fin == FinImportacion::Completa || transferidas < resultado.transferidos;
        transferidas += CuentaComoTransferida(falla) ? 1 : 0;
        if (falla || conservada)
            desenlace.veredictos.append({escritas[i], falla});
    }
}

} // namespace

DesenlaceDeCorreccion CorreCorregidas(Proceso& proceso, const ClaveDeclaracion& clave, const Correccion& correccion,
                                      const QList<int>& lineas, bool prueba, Avance& avance) {
    DesenlaceDeCorreccion desenlace;
    const QTemporaryDir carpeta;
    if (!carpeta.isValid())
        throw FallaDeCarpeta(carpeta.path());
    const QString ruta = carpeta.filePath(NombreDeArchivo(clave, correccion.Formato()));
    const QList<int> escritas = EscribeLineas(correccion, lineas, ruta, desenlace.veredictos);
    if (escritas.isEmpty())
        return desenlace;
    FallasDeCorrida fallas;
    HastaQueDetengan observador(avance);
    const OpcionesImportacion opciones{.prueba = prueba, .rechazadas = &fallas, .seDeshace = !prueba};
    desenlace.resultado = Transferencia(proceso, clave, correccion.Formato(), ruta, opciones).Corre(observador);
    desenlace.corrio = true;
    Juzga(escritas, fallas, desenlace);
    return desenlace;
}

} // namespace xa518
