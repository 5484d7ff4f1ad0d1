#include "reports/PrintReport.h"

#include "platform/Clock.h"
#include "platform/FileDialogs.h"
#include "platform/Notices.h"
#include "reports/FollowedReport.h"
#include "reports/PageRange.h"
#include "reports/PagedPrinter.h"
#include "reports/PdfFile.h"
#include "reports/SpoolRegistry.h"
#include "reports/frmImpresora.h"
#include "widgets/HourGlass.h"
#include "widgets/LongTask.h"

#include <QDir>
#include <QPagedPaintDevice>
#include <QStandardPaths>

#include <memory>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kErrorAlImprimir = u"Error al Imprimir"_s;

/// An order to print, and where it leads. It lives as long as any step of it is still to come.
class Impresion : public std::enable_shared_from_this<Impresion> {
  public:
    Impresion(EntornoInformes entorno, ReportePedido pedido, QWidget& padre)
        : m_entorno(std::move(entorno)), m_pedido(std::move(pedido)), m_padre(&padre) {}

    void Imprime();

  private:
    /// Where the service knows one printer, that one; of several the user chooses.
    void EnLaQueHaya(const QList<ColaImpresion>& colas);
    void EnPapel(const ColaImpresion& cola);
    struct Enviado {
        int hojas = 0;
        QString rechazo; ///< asked in the thread that has sent the job: the service tells nobody else
    };
    [[nodiscard]] Enviado Envia(QPagedPaintDevice& dispositivo, Avance& avance) const;
    void CuentaElEnvio(const ColaImpresion& cola, const Enviado& enviado);
    void OfrecePdf(const QString& porQueNoSeImprime);
    void EnPdf() { GuardaReporteComoPdf(m_entorno, m_pedido, m_pedido.rango, *m_padre); }
    void Muestra(Icono icono, const QString& texto, const QString& titulo = {}) {
        m_entorno.avisos.Muestra({icono, texto, titulo});
    }

    EntornoInformes m_entorno;
    ReportePedido m_pedido;
    QWidget* m_padre;
    std::unique_ptr<InformeSpool> m_informe;
};

void Impresion::Imprime() {
    const QString ruta = RutaDeInforme(m_entorno.rutaRPT, m_pedido.archivo);
    if (const Veredicto veredicto = ValidaArchivoInforme(ruta); !veredicto) {
        m_entorno.avisos.Muestra(veredicto.Motivo());
        return;
    }
    RelojDeArena reloj;
    m_informe = InformeSpool::Abre(ruta);
    const bool alcanza = m_pedido.rango.Alcanza(m_informe->Paginas());
    const bool responde = alcanza && m_entorno.impresion->Responde();
    const QList<ColaImpresion> colas = responde ? m_entorno.impresion->Colas() : QList<ColaImpresion>();
    reloj.Suelta();
    if (!alcanza) // not even an empty sheet
        Muestra(Icono::Critico, TextoRango(m_pedido.rango, m_informe->Paginas()), kErrorAlImprimir);
    else if (!responde)
        OfrecePdf(u"El servicio de impresión del sistema no responde: está detenido o no está instalado."_s);
    else if (colas.isEmpty())
        OfrecePdf(u"No hay ninguna impresora instalada."_s);
    else
        EnLaQueHaya(colas);
}

void Impresion::EnLaQueHaya(const QList<ColaImpresion>& colas) {
    if (colas.size() == 1) {
        EnPapel(colas.first());
        return;
    }
    frmImpresora eleccion(colas, m_padre);
    AbreSobre(eleccion, *m_padre);
    switch (eleccion.Elegido()) {
    case frmImpresora::Destino::Cola: EnPapel(eleccion.Cola()); break;
    case frmImpresora::Destino::Pdf: EnPdf(); break;
    case frmImpresora::Destino::Ninguno: break;
    }
}

void Impresion::EnPapel(const ColaImpresion& cola) {
    if (cola.estado == EstadoCola::NoRecibe) {
        OfrecePdf(u"La impresora «%1» no recibe trabajos."_s.arg(cola.Titulo()));
        return;
    }
    const std::shared_ptr<QPagedPaintDevice> dispositivo = m_entorno.impresion->Abre(cola, m_pedido.Titulo());
    CorreTarea(
        *m_padre, {.titulo = u"Imprimiendo el reporte"_s},
        [yo = shared_from_this(), dispositivo](Avance& avance) { return yo->Envia(*dispositivo, avance); },
        [yo = shared_from_this(), cola](const Enviado& enviado) { yo->CuentaElEnvio(cola, enviado); });
}

void Impresion::CuentaElEnvio(const ColaImpresion& cola, const Enviado& enviado) {
    const QString hojas = CuantasPaginas(enviado.hojas);
    if (!enviado.rechazo.isEmpty())
        OfrecePdf(u"La impresora «%1» no recibió el reporte: %2"_s.arg(cola.Titulo(), enviado.rechazo));
    else if (cola.estado == EstadoCola::Detenida)
        Muestra(Icono::Exclamacion,
                u"La impresora «%1» está detenida. El reporte (%2) espera en su cola y saldrá cuando se reanude."_s.arg(
                    cola.Titulo(), hojas));
    else
        Muestra(Icono::Informacion, u"Se envió a la impresora «%1»: %2."_s.arg(cola.Titulo(), hojas));
}

Impresion::Enviado Impresion::Envia(QPagedPaintDevice& dispositivo, Avance& avance) const {
    ImpresoraPaginas impresora(dispositivo);
    InformeSeguido seguido(impresora, avance);
    m_informe->Imprime(m_pedido.rango, seguido);
    impresora.Termina();
    return {impresora.Hojas(), m_entorno.impresion->Rechazo()};
}

void Impresion::OfrecePdf(const QString& porQueNoSeImprime) {
    const QString pregunta = porQueNoSeImprime + u"\n¿Desea guardar el reporte como PDF?"_s;
    if (m_entorno.avisos.Pregunta({Icono::Pregunta, pregunta, kErrorAlImprimir}) == Respuesta::Si)
        EnPdf();
}

ArchivoPedido PdfDe(const QString& titulo) {
    const QDir documentos(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    return {.titulo = u"Guardar como PDF"_s,
            .sugerido = documentos.filePath(QString(titulo).replace(u'/', u'-') + u".pdf"_s),
            .tipo = u"Documentos PDF"_s,
            .sufijo = u"pdf"_s};
}

} // namespace

void ImprimeReporte(const EntornoInformes& entorno, const ReportePedido& pedido, QWidget& padre) {
    std::make_shared<Impresion>(entorno, pedido, padre)->Imprime();
}

void GuardaReporteComoPdf(const EntornoInformes& entorno, const ReportePedido& pedido, const RangoPaginas& rango,
                          QWidget& padre) {
    const QString ruta = entorno.archivos.PideArchivo(PdfDe(pedido.Titulo()));
    if (ruta.isEmpty())
        return;
    const MetadatosPdf metadatos{pedido.Titulo(), entorno.autor, entorno.reloj.Ahora()};
    CorreTarea(
        padre, {.titulo = u"Guardando como PDF"_s},
        [spool = RutaDeInforme(entorno.rutaRPT, pedido.archivo), ruta, metadatos, rango](Avance& /*avance*/) {
            return EscribePdf({spool}, ruta, metadatos, rango);
        },
        [&avisos = entorno.avisos, donde = QDir::toNativeSeparators(ruta)](int hojas) {
            avisos.Muestra({Icono::Informacion, u"Se guardó en «%1»: %2."_s.arg(donde, CuantasPaginas(hojas)), {}});
        });
}

} // namespace xa518
