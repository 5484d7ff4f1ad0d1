#include "import/FileExport.h"

#include "data/Base.h"
#include "family/Process.h"
#include "form518/LawBands.h"
#include "form518/SavedLines.h"
#include "form518/WorkTables.h"
#include "import/ErrorTexts.h"
#include "import/FieldChecks.h"
#include "import/Formats.h"
#include "import/ImportFormat.h"
#include "import/LineFields.h"
#include "import/WorkRows.h"
#include "platform/Clock.h"
#include "values/Text.h"

#include <QIODevice>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kFinDelRegistro("\r\n");

/// The stored row as the fields of a line would give it.
class LineaExportada {
  public:
    LineaExportada(Proceso& proceso, const ClaveDeclaracion& clave, const FormatoImportacion& formato)
        : m_base(proceso.baseDatos.get())
        , m_formato(&formato)
        , m_contexto{clave.ruc, clave.periodo, proceso.reloj.Hoy(), {}}
        , m_tasas(*proceso.baseDatos, clave.periodo, proceso.fechaPrimerIgv) {
        if (formato.tipos)
            m_contexto.ventas = formato.tipos(*proceso.baseDatos);
    }

    /// Why an import of the line would not give the row back; empty when it would.
    [[nodiscard]] QString PorQueNo(const LineasGuardadas& fila) {
        if (!fila.TieneCliente())
            return u"Su cliente no está en la declaración."_s;
        if (LlevaPago() && !fila.TienePago())
            return u"El comprobante no tiene comprobantes de pago."_s;
        m_texto = Campos(fila).join(u'|') + u'|';
        if (m_texto.count(u'|') != m_formato->Campos() || m_texto.contains(u'\n') || m_texto.contains(u'\r'))
            return u"Uno de sus textos tiene un separador."_s;
        QStringList campos;
        SeparaCampos(m_texto, m_formato->Campos(), campos);
        if (const Refutacion no = CompruebaLinea(m_formato->comprobaciones, campos, m_contexto, m_linea))
            return NombreDeCampo(static_cast<Campo>(no.campo)) + u": "_s + MotivoDe(*m_base, no.codigo);
        const QStringList distintos = Distintos(fila);
        return distintos.isEmpty() ? QString() : u"Volvería con otros datos: %1."_s.arg(distintos.join(u", "_s));
    }

    [[nodiscard]] const QString& Texto() const { return m_texto; }

  private:
    [[nodiscard]] bool LlevaPago() const { return m_formato->Campos() == kCampos; }

    [[nodiscard]] QStringList Campos(const LineasGuardadas& fila) const {
        QStringList campos = CamposDelCliente(fila) + CamposDelComprobante(fila);
        if (!LlevaPago())
            return campos << fila.Dato(DatoComprobante::TipCp);
        QString monto = fila.Dato(DatoPago::Monto);
        if (fila.Dato(DatoPago::Tipo) == u"07" && monto.startsWith(u'-'))
            monto.remove(0, 1); // a credit note gets its sign from the import
        return campos << fila.Dato(DatoPago::Tipo) << fila.Dato(DatoPago::Serie) << fila.Dato(DatoPago::Numero)
                      << fila.Dato(DatoPago::Fecha) << monto;
    }

    static QStringList CamposDelCliente(const LineasGuardadas& fila) {
        const QString numero = fila.Dato(DatoComprobante::NumDoc);
        const CodigoDocumento tipo(fila.Dato(DatoComprobante::TipoDoc).toInt());
        const bool empresa = EsEmpresa(tipo, numero);
        const auto dato = [&](DatoCliente cual, bool va) {
            return va ? Recorta(fila.Dato(cual)).toString() : QString();
        };
        return {tipo.Texto(),
                numero,
                dato(DatoCliente::Razon, empresa),
                dato(DatoCliente::ApellidoP, !empresa),
                dato(DatoCliente::ApellidoM, !empresa),
                dato(DatoCliente::Nombres, !empresa)};
    }

    /// The answers that the tables don't keep in this period are given as no, which changes nothing in them.
    [[nodiscard]] QStringList CamposDelComprobante(const LineasGuardadas& fila) const {
        using enum DatoComprobante;
        const QString lista = fila.Dato(ListaClie);
        return {fila.Dato(Serie),    fila.Dato(Numero), fila.Dato(Fecha),
                fila.Dato(CpFact),   RespuestaDe(fila), lista == u"9" ? u"0"_s : lista,
                fila.Dato(MontoBase)};
    }

    [[nodiscard]] QString RespuestaDe(const LineasGuardadas& fila) const {
        if (!PreguntaPorZona(m_contexto.periodoDeclarado))
            return {};
        return m_tasas.BandaDeclarada() == Banda::B ? fila.Dato(DatoComprobante::MedPago) : u"0"_s;
    }

    /// What the import would store otherwise than the row has it.
    [[nodiscard]] QStringList Distintos(const LineasGuardadas& fila) {
        QStringList distintos;
        const auto compara = [&](const QString& nombre, bool igual) {
            if (!igual)
                distintos.append(nombre);
        };
        compara(u"el documento del cliente"_s, MismoDocumento(fila));
        compara(u"el nombre del cliente"_s, MismoNombre(fila));
        compara(u"la serie o el número"_s, MismaClave(fila));
        const CamposComprobante campos = CamposDe(m_linea, m_tasas);
        using enum DatoComprobante;
        compara(u"las respuestas"_s, campos.cpFact == fila.Dato(CpFact) && campos.listaClie == fila.Dato(ListaClie) &&
                                         campos.medPago == fila.Dato(MedPago));
        compara(u"la fecha o el monto"_s,
                campos.fecha == fila.Dato(Fecha) && campos.base.Texto() == fila.Dato(MontoBase));
        compara(u"la tasa o la percepción"_s, Recorta(campos.tasa) == Recorta(fila.Dato(Tasa)) &&
                                                  TextoDePercepcion(campos.percepcion) == fila.Dato(Percepcion));
        if (LlevaPago())
            compara(u"el comprobante de pago"_s, MismoPago(fila));
        return distintos;
    }

    [[nodiscard]] bool MismoDocumento(const LineasGuardadas& fila) const {
        const ClaveCliente cliente = ClienteDe(m_linea);
        return cliente.tipoDoc.Valor() == fila.Dato(DatoComprobante::TipoDoc).toInt() &&
               cliente.numero == fila.Dato(DatoComprobante::NumDoc);
    }

    /// As a save keeps it: a company's one name, or a person's three.
    [[nodiscard]] bool MismoNombre(const LineasGuardadas& fila) const {
        const NombresCliente nombres = NombresDe(m_linea);
        const auto mismo = [&](const std::optional<QString>& uno, DatoCliente dato) {
            return Recorta(uno.value_or(QString())) == Recorta(fila.Dato(dato));
        };
        if (m_linea.clienteEsEmpresa)
            return mismo(nombres.razon, DatoCliente::Razon);
        return mismo(nombres.apellidoP, DatoCliente::ApellidoP) && mismo(nombres.apellidoM, DatoCliente::ApellidoM) &&
               mismo(nombres.nombres, DatoCliente::Nombres);
    }

    [[nodiscard]] bool MismaClave(const LineasGuardadas& fila) const {
        const ClaveComprobante clave = ComprobanteDe(m_linea, LlevaPago() ? QString() : m_linea[Campo::TipoCp]);
        return clave.serie == fila.Dato(DatoComprobante::Serie) && clave.numero == fila.Dato(DatoComprobante::Numero) &&
               clave.tipCp == fila.Dato(DatoComprobante::TipCp);
    }

    [[nodiscard]] bool MismoPago(const LineasGuardadas& fila) const {
        const ComprobanteDePago pago = PagoDe(m_linea);
        return pago.clave.tipo == fila.Dato(DatoPago::Tipo) && pago.clave.serie == fila.Dato(DatoPago::Serie) &&
               pago.clave.numero == fila.Dato(DatoPago::Numero) && pago.fecha == fila.Dato(DatoPago::Fecha) &&
               pago.monto.Valor() == Decimal::Valor(fila.Dato(DatoPago::Monto));
    }

    Base* m_base;
    const FormatoImportacion* m_formato;
    ContextoImportacion m_contexto;
    TasaImportacion m_tasas;
    QString m_texto;
    LineaComprobada m_linea;
};

/// How a row is told from the others.
QString NombreDe(const LineasGuardadas& fila) {
    using enum DatoComprobante;
    QStringList partes{CodigoDocumento(fila.Dato(TipoDoc).toInt()).Texto(), fila.Dato(NumDoc), fila.Dato(Serie),
                       fila.Dato(Numero)};
    if (const QString tipo = fila.Dato(TipCp); !tipo.isEmpty())
        partes.append(tipo);
    if (fila.TienePago())
        partes << fila.Dato(DatoPago::Tipo) << fila.Dato(DatoPago::Serie) << fila.Dato(DatoPago::Numero);
    return partes.join(u' ');
}

} // namespace

qint64 Exportacion::Escribe(const FormatoImportacion& formato, QIODevice& destino) {
    const ClaseDeComprobante clase =
        formato.Campos() == kCampos ? ClaseDeComprobante::Percepcion : ClaseDeComprobante::Venta;
    LineaExportada linea(*m_proceso, *m_clave, formato);
    LineasGuardadas filas(*m_proceso->baseDatos, *m_clave, clase);
    qint64 escritas = 0;
    while (filas.Siguiente()) {
        if (QString motivo = linea.PorQueNo(filas); !motivo.isEmpty()) {
            m_sinLugar.append({NombreDe(filas), std::move(motivo)});
            continue;
        }
        const QByteArray bytes = (linea.Texto() + kFinDelRegistro).toUtf8();
        if (destino.write(bytes) != bytes.size())
            throw Error(NumeroError::AccesoAlDisco, u"No se pudo escribir el archivo: "_s + destino.errorString());
        ++escritas;
    }
    return escritas;
}

QList<FilaSinLugar> Exportacion::SinLugar() const {
    QList<FilaSinLugar> filas = m_sinLugar;
    for (const QString& cliente : ClientesSinComprobante(*m_proceso->baseDatos, *m_clave))
        filas.append({cliente, u"El cliente no tiene comprobantes."_s});
    for (const QString& pago : PagosSinComprobante(*m_proceso->baseDatos, *m_clave))
        filas.append({pago, u"Su comprobante de percepción no está en la declaración."_s});
    return filas;
}

} // namespace xa518
