#include "batch/ImportCommand.h"

#include "batch/Arguments.h"
#include "batch/ExitCode.h"
#include "batch/Report.h"
#include "batch/Session.h"
#include "form518/UnsavedDeclaration.h"
#include "form518/WorkTables.h"
#include "import/ErrorSheet.h"
#include "import/Formats.h"
#include "import/ImportFile.h"
#include "import/ImportRun.h"
#include "platform/Clock.h"
#include "values/FileFailure.h"

#include <QFileInfo>
#include <QSaveFile>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

struct Archivo {
    const FormatoImportacion* formato;
    QString ruta; ///< of its folder, or its own
};

/// A file with another name is that of another month or kind, which nothing in its lines may tell.
void ExigeNombre(const ClaveDeclaracion& clave, const Archivo& archivo) {
    const QString nombre = NombreDeArchivo(clave, *archivo.formato);
    if (QFileInfo(archivo.ruta).isFile() && !SeLlama(archivo.ruta, nombre))
        throw RechazaCon(u"«%1» no es el archivo de ese RUC y ese período, que se llama «%2»."_s.arg(
            QFileInfo(archivo.ruta).fileName(), nombre));
}

QList<Archivo> ArchivosDe(const ClaveDeclaracion& clave, const Argumentos& argumentos) {
    QList<Archivo> archivos;
    if (argumentos.percepciones)
        archivos.append({&FormatoPercepciones(), *argumentos.percepciones});
    if (argumentos.ventas)
        archivos.append({&FormatoVentas(), *argumentos.ventas});
    for (const Archivo& archivo : archivos)
        ExigeNombre(clave, archivo);
    return archivos;
}

void AnotaArchivo(Informe& informe, const QString& ruta) {
    if (ruta.isEmpty() || informe.archivos.contains(ruta))
        return;
    informe.archivos.append(ruta);
}

void AnotaImportacion(Informe& informe, const ResultadoImportacion& resultado) {
    const bool reemplazado = !resultado.rutaLog.isEmpty() && informe.archivos.contains(resultado.rutaLog);
    informe.transferidos = informe.transferidos.value_or(0) + static_cast<int>(resultado.transferidos);
    informe.rechazados = informe.rechazados.value_or(0) + static_cast<int>(resultado.rechazados);
    AnotaArchivo(informe, resultado.rutaLog);
    AnotaArchivo(informe, resultado.rutaErr);
    if (resultado.rechazados > 0)
        informe.codigo = kSalidaObservaciones;
    // Both kinds of file share one pair of logs, and each run begins them anew.
    if (reemplazado)
        informe.mensajes.append(
            {Icono::Exclamacion,
             u"El .Log y el .Err tienen solo las líneas rechazadas de %1; impórtelos uno por uno, o "
             "con --errores, para tener las de ambos."_s.arg(resultado.archivo),
             {}});
    for (const QString& perdido : resultado.noConservado)
        informe.mensajes.append({Icono::Exclamacion, perdido, {}});
}

/// Where the refused lines of the runs go: into the report, when it is to tell them, and into a file, when one is asked
/// for. That appears whole or not at all.
class LineasRechazadas final : public DestinoDeRechazos {
  public:
    LineasRechazadas(const std::optional<QString>& ruta, QList<FilaPlanilla>* enInforme) : m_enInforme(enInforme) {
        if (!ruta)
            return;
        m_archivo.setFileName(*ruta);
        if (!m_archivo.open(QIODevice::WriteOnly))
            throw Falla();
        m_planilla.emplace(m_archivo);
    }

    [[nodiscard]] bool HacenFalta() const { return m_planilla || m_enInforme != nullptr; }

    void Anota(const FilaPlanilla& fila) override {
        if (m_planilla)
            m_planilla->Anota(fila);
        // What bars the whole file is told by itself.
        if (m_enInforme != nullptr && !fila.codigo.isEmpty())
            m_enInforme->append(fila);
    }

    void Cierra(Informe& informe) {
        if (!m_planilla)
            return;
        if (!m_planilla->EstaCompleta() || !m_archivo.commit())
            throw Falla();
        AnotaArchivo(informe, m_archivo.fileName());
    }

    /// Why an import was refused isn't lost over a file that can't be written.
    void CierraTrasRechazo(Informe& informe) {
        try {
            Cierra(informe);
        } catch (const Error& error) {
            informe.mensajes.append({Icono::Exclamacion, error.Texto(), {}});
        }
    }

  private:
    [[nodiscard]] Error Falla() const { return FallaDeArchivo(Intento::Escribir, m_archivo); }

    QSaveFile m_archivo;
    std::optional<PlanillaErrores> m_planilla;
    QList<FilaPlanilla>* m_enInforme;
};

/// Goes on only after a run that has imported what it could.
void Exige(const ResultadoImportacion& resultado, const FormatoImportacion& formato, LineasRechazadas& rechazadas,
           Informe& informe) {
    if (resultado.fin == FinImportacion::Rechazada) {
        const Revision& revision = resultado.revision;
        informe.rechazado = {resultado.archivo, resultado.detalle, revision.linea,
                             revision.campos,   formato.Campos(),  revision.lineas};
        rechazadas.CierraTrasRechazo(informe);
        throw Rechazo{*resultado.mensaje, resultado.archivo + u": "_s + resultado.detalle};
    }
    if (resultado.fin == FinImportacion::Fallida)
        throw Error(*resultado.falla); // a window words it for itself
    if (resultado.sinTotales)
        throw Error(resultado.sinTotales->Numero(),
                    u"No se pudieron calcular los totales de los clientes. "_s + resultado.sinTotales->Texto(),
                    resultado.sinTotales->Detalle());
}

/// A file has one set of work tables, and the module may have left one there that its user hasn't saved: scripts don't
/// wait for him, but he gets it back. The date is the real one, whatever day the declaration is made for.
void HazSitio(Base& base, Informe& informe) {
    TablaSinGrabar tabla(base);
    const std::optional<FilaSinGrabar> hallada = tabla.Lee();
    if (!hallada)
        return;
    const QDateTime ahora = RelojSistema().Ahora();
    const QString nombre = hallada->esDeEstaVersion ? QString() : u"ilegible-"_s + ahora.toString(u"yyyyMMdd-HHmmss"_s);
    informe.apartada =
        u"Había una declaración sin grabar de %1. Quedó apartada por %2 días; para retomarla, elija en el"
        " módulo Declaraciones, Retomar una apartada."_s.arg(Descripcion(base, hallada->fila, tabla.Comprobantes()))
            .arg(kDiasApartada);
    tabla.Aparta(ahora, nombre);
}

} // namespace

void CargaTrabajo(Proceso& proceso, const Argumentos& argumentos, const ClaveDeclaracion& clave,
                  ObservadorImportacion& avance, Informe& informe) {
    TablasTrabajo trabajo(*proceso.baseDatos);
    const QList<Archivo> archivos = ArchivosDe(clave, argumentos);
    if (archivos.isEmpty()) {
        HazSitio(*proceso.baseDatos, informe);
        return trabajo.Reconstruye(clave);
    }
    if (argumentos.json)
        informe.lineasRechazadas.emplace();
    LineasRechazadas rechazadas(argumentos.errores, argumentos.json ? &*informe.lineasRechazadas : nullptr);
    const OpcionesImportacion opciones{argumentos.probar, rechazadas.HacenFalta() ? &rechazadas : nullptr};
    for (qsizetype i = 1; i < archivos.size(); ++i) { // the first one is looked through by its own run
        const auto& [formato, ruta] = archivos[i];
        Exige(Transferencia(proceso, clave, *formato, ruta, opciones).Revisa(), *formato, rechazadas, informe);
    }
    bool empezado = false;
    const auto alEmpezar = [&] {
        if (argumentos.probar)
            trabajo.Llena(clave);
        else if (!std::exchange(empezado, true)) {
            HazSitio(*proceso.baseDatos, informe);
            trabajo.Reconstruye(clave);
        }
    };
    for (const auto& [formato, ruta] : archivos) {
        const ResultadoImportacion resultado =
            Transferencia(proceso, clave, *formato, ruta, opciones).Corre(avance, alEmpezar);
        if (resultado.fin != FinImportacion::Rechazada)
            AnotaImportacion(informe, resultado);
        Exige(resultado, *formato, rechazadas, informe);
        if (argumentos.probar)
            informe.mensajes.append(*resultado.mensaje);
    }
    rechazadas.Cierra(informe);
}

} // namespace xa518
