#include "reports/PrintReport.h"

#include "platform/Clock.h"
#include "platform/FileDialogs.h"
#include "platform/Notices.h"
#include "reports/PageRange.h"
#include "reports/PagedPrinter.h"
#include "reports/PdfFile.h"
#include "reports/SpoolRegistry.h"
#include "reports/frmImpresora.h"
#include "widgets/HourGlass.h"

#include <QDir>
#include <QStandardPaths>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kErrorAlImprimir = u"Error al Imprimir"_s;

/// An order to print, and where it leads.
class Impresion {
  public:
    Impresion(const EntornoInformes& entorno, const ReportePedido& pedido, QWidget* padre)
        : m_entorno(&entorno), m_pedido(&pedido), m_padre(padre) {}

    void Imprime();

  private:
    /// Where the service knows one printer, that one; of several the user chooses.
    void EnLaQueHaya(const QList<ColaImpresion>& colas);
    void EnPapel(const ColaImpresion& cola);
    /// The sheets of the job.
    [[nodiscard]] int Envia(const ColaImpresion& cola);
    void OfrecePdf(const QString& porQueNoSeImprime);
    void EnPdf() { GuardaReporteComoPdf(*m_entorno, *m_pedido, m_pedido->rango); }
    void Muestra(Icono icono, const QString& texto, const QString& titulo = {}) {
        m_entorno->avisos.Muestra({icono, texto, titulo});
    }

    const EntornoInformes* m_entorno;
    const ReportePedido* m_pedido;
    QWidget* m_padre;
    std::unique_ptr<InformeSpool> m_informe;
};

void Impresion::Imprime() {
    const QString ruta = RutaDeInforme(m_entorno->rutaRPT, m_pedido->archivo);
    if (const Veredicto veredicto = ValidaArchivoInforme(ruta); !veredicto) {
        m_entorno->avisos.Muestra(veredicto.Motivo());
        return;
    }
    RelojDeArena reloj;
    m_informe = InformeSpool::Abre(ruta);
    const bool alcanza = m_pedido->rango.Alcanza(m_informe->Paginas());
    const bool responde = alcanza && m_entorno->impresion->Responde();
    const QList<ColaImpresion> colas = responde ? m_entorno->impresion->Colas() : QList<ColaImpresion>();
    reloj.Suelta();
    if (!alcanza) // not even an empty sheet
        Muestra(Icono::Critico, TextoRango(m_pedido->rango, m_informe->Paginas()), kErrorAlImprimir);
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
    AbreSobre(eleccion, m_padre);
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
    const QString hojas = CuantasPaginas(Envia(cola));
    if (const QString rechazo = m_entorno->impresion->Rechazo(); !rechazo.isEmpty())
        OfrecePdf(u"La impresora «%1» no recibió el reporte: %2"_s.arg(cola.Titulo(), rechazo));
    else if (cola.estado == EstadoCola::Detenida)
        Muestra(Icono::Exclamacion,
                u"La impresora «%1» está detenida. El reporte (%2) espera en su cola y saldrá cuando se reanude."_s.arg(
                    cola.Titulo(), hojas));
    else
        Muestra(Icono::Informacion, u"Se envió a la impresora «%1»: %2."_s.arg(cola.Titulo(), hojas));
}

int Impresion::Envia(const ColaImpresion& cola) {
    const RelojDeArena reloj;
    const std::unique_ptr<QPagedPaintDevice> dispositivo = m_entorno->impresion->Abre(cola, m_pedido->Titulo());
    ImpresoraPaginas impresora(*dispositivo);
    m_informe->Imprime(m_pedido->rango, impresora);
    impresora.Termina();
    return impresora.Hojas();
}

void Impresion::OfrecePdf(const QString& porQueNoSeImprime) {
    const QString pregunta = porQueNoSeImprime + u"\n¿Desea guardar el reporte como PDF?"_s;
    if (m_entorno->avisos.Pregunta({Icono::Pregunta, pregunta, kErrorAlImprimir}) == Respuesta::Si)
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

void ImprimeReporte(const EntornoInformes& entorno, const ReportePedido& pedido, QWidget* padre) {
    Impresion(entorno, pedido, padre).Imprime();
}

void GuardaReporteComoPdf(const EntornoInformes& entorno, const ReportePedido& pedido, const RangoPaginas& rango) {
    const QString ruta = entorno.archivos.PideArchivo(PdfDe(pedido.Titulo()));
    if (ruta.isEmpty())
        return;
    RelojDeArena reloj;
    const int hojas = EscribePdf({RutaDeInforme(entorno.rutaRPT, pedido.archivo)}, ruta,
                                 {pedido.Titulo(), entorno.autor, entorno.reloj.Ahora()}, rango);
    reloj.Suelta();
    const QString donde = QDir::toNativeSeparators(ruta);
    entorno.avisos.Muestra({Icono::Informacion, u"Se guardó en «%1»: %2."_s.arg(donde, CuantasPaginas(hojas)), {}});
}

} // namespace xa518
