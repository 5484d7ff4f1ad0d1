#include "reports/PdfFile.h"

#include "reports/PagedPrinter.h"
#include "reports/PdfMetadata.h"
#include "values/FileFailure.h"

#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPageSize>
#include <QPdfWriter>

#include <filesystem>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kResolucion = 1440; ///< a dot of the device is a twip

/// Without either the pages would come out empty.
void ExigeLetras() {
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr)
        throw Error(NumeroError::ArgumentoInvalido, u"No hay dónde dibujar las páginas."_s);
    if (QFontDatabase::families().isEmpty())
        throw Error(NumeroError::ArgumentoInvalido, u"No hay ninguna letra instalada: instale fonts-liberation."_s);
}

int ImprimeEn(QFile& pdf, const QStringList& spools, const RangoPaginas& rango) {
    QPdfWriter escritor(&pdf);
    escritor.setResolution(kResolucion);
    escritor.setPageSize(QPageSize(QPageSize::A4));
    escritor.setPageMargins(QMarginsF());
    ImpresoraPaginas impresora(escritor);
    for (const QString& spool : spools) {
        impresora.EmpiezaOtro();
        InformeSpool::Abre(spool)->Imprime(rango, impresora);
    }
    impresora.Termina();
    return impresora.Hojas();
}

/// Removes the half-done file unless it got its name.
class ArchivoParcial {
  public:
    explicit ArchivoParcial(const QString& ruta) : m_ruta(ruta), m_archivo(ruta + u".parcial"_s) {
        if (!m_archivo.open(QIODevice::ReadWrite | QIODevice::Truncate))
            throw Falla();
    }
    ArchivoParcial(const ArchivoParcial&) = delete;
    ArchivoParcial& operator=(const ArchivoParcial&) = delete;
    ~ArchivoParcial() { m_archivo.remove(); }

    [[nodiscard]] QFile& Archivo() { return m_archivo; }

    void Confirma() {
        if (!m_archivo.flush() || m_archivo.error() != QFileDevice::NoError)
            throw Falla();
        m_archivo.close();
        std::error_code error;
        std::filesystem::rename(m_archivo.filesystemFileName(), QFile(m_ruta).filesystemFileName(), error);
        if (error)
            throw FallaDeArchivo(Intento::Escribir, m_ruta);
    }

  private:
    [[nodiscard]] Error Falla() const { return FallaDeArchivo(Intento::Escribir, m_ruta, m_archivo); }

    QString m_ruta;
    QFile m_archivo;
};

} // namespace

int EscribePdf(const QStringList& spools, const QString& rutaPdf, const MetadatosPdf& metadatos,
               const RangoPaginas& rango) {
    ExigeLetras();
    ArchivoParcial parcial(rutaPdf);
    const int hojas = ImprimeEn(parcial.Archivo(), spools, rango);
    PonMetadatos(parcial.Archivo(), metadatos);
    parcial.Confirma();
    return hojas;
}

} // namespace xa518
