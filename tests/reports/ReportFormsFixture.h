#pragma once

#include "reports/Printing.h"
#include "reports/ReportFixture.h"
#include "reports/ShowReport.h"
#include "support/FileDialogScript.h"
#include "support/FormDriver.h"

#include <QPrinter>
#include <QProcess>
#include <QSpinBox>

namespace xa518::prueba {

/// Printers that print into a file.
class ServicioDePrueba final : public ServicioDeImpresion {
  public:
    explicit ServicioDePrueba(QString salida) : m_salida(std::move(salida)) {}

    bool Responde() override { return responde; }
    QList<ColaImpresion> Colas() override { return colas; }
    std::unique_ptr<QPagedPaintDevice> Abre(const ColaImpresion& /*cola*/, const QString& titulo) override {
        auto impresora = std::make_unique<QPrinter>(QPrinter::HighResolution); // without a queue: into a file
        impresora->setOutputFormat(QPrinter::PdfFormat);
        impresora->setOutputFileName(m_salida);
        impresora->setFullPage(true);
        impresora->setDocName(titulo);
        return impresora;
    }
    QString Rechazo() override { return rechazo; }

    bool responde = true;
    QList<ColaImpresion> colas{{u"sala"_s, {}, false, EstadoCola::Lista}};
    QString rechazo;

  private:
    QString m_salida;
};

/// The windows of reports over a process, and the one printer that they reach.
template <typename TallerDe>
class FormasDeInformesTest : public testing::Test {
  protected:
    FormasDeInformesTest() { m_entorno.impresion = m_servicio; }

    /// The word on a report that went to the only printer.
    void EsperaEnvio(const QString& hojas) { m_avisos.Espera(u"Se envió a la impresora «sala»: %1."_s.arg(hojas)); }

    QString Ruta(const QString& nombre) const { return m_taller.base.Carpeta() + u'/' + nombre; }

    /// The words of each sheet of a PDF, read back; the file is gone then.
    QStringList Impreso(const QString& nombre = u"impreso.pdf"_s) const {
        QProcess pdftotext;
        pdftotext.start(u"pdftotext"_s, {u"-layout"_s, Ruta(nombre), u"-"_s});
        if (!pdftotext.waitForFinished() || pdftotext.exitCode() != 0)
            return {u"unreadable"_s};
        QFile::remove(Ruta(nombre));
        QStringList hojas = QString::fromUtf8(pdftotext.readAllStandardOutput()).split(u'\f');
        hojas.removeLast(); // behind the last form feed
        for (QString& hoja : hojas)
            hoja = hoja.simplified();
        return hojas;
    }

    /// A report of so many pages, "hoja 1", "hoja 2" and so on.
    ReportePedido Reporte(int paginas, const RangoPaginas& rango = {}) const {
        QByteArray spool = "<!nHojas!>" + QByteArray::number(paginas) + "<!/nHojas!>\n<!Color!>&H00FFFFC0&<!/Color!>\n";
        for (int i = 0; i < paginas; ++i)
            spool += u"pPos|500|500|hoja %1|True|40|%2|\npNuevaHoja\n"_s.arg(i + 1).arg(i).toUtf8();
        EscribeEn(m_taller.proceso.rutaRPT + u"/a.PRN"_s, spool);
        return {u"a.PRN"_s, u"Reporte"_s, rango};
    }

    QWidget m_ventana; ///< over which they open
    static int Pagina(QWidget& vista) { return De<QSpinBox>(vista, u"txtPagina"_s).value(); }

    TallerDe m_taller;
    AvisosDePrueba m_avisos;
    DialogosDeArchivoDePrueba m_archivos;
    EntornoInformes m_entorno = EntornoDeInformes(m_taller.proceso, m_avisos, m_archivos);
    std::shared_ptr<ServicioDePrueba> m_servicio = std::make_shared<ServicioDePrueba>(Ruta(u"impreso.pdf"_s));
};

} // namespace xa518::prueba
