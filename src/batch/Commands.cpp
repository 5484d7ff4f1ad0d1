#include "batch/Commands.h"

#include "batch/ExitCode.h"
#include "batch/ImportCommand.h"
#include "batch/PdfOutput.h"
#include "batch/ProgressLine.h"
#include "batch/Session.h"
#include "data/Catalog.h"
#include "declaration/ClientGrid.h"
#include "declaration/Consistency.h"
#include "declaration/Save.h"
#include "declaration/StoredBoxes.h"
#include "declaration/TaxPeriod.h"
#include "family/OfferedDeclarants.h"
#include "family/StoredDeclaration.h"
#include "family/WorkLock.h"
#include "family/WorkSeat.h"
#include "form518/WorkTables.h"
#include "platform/Clock.h"
#include "values/Text.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kGrabando = u"Grabando la declaración"_s;
const QString kImprimiendo = u"Imprimiendo"_s;

void Exige(const Veredicto& veredicto) {
    if (!veredicto)
        throw Rechazo{veredicto.Motivo()};
}

/// The declarant must be one of those that the user may choose in the module.
void ExigeDeclarante(const Proceso& proceso, const Ruc& ruc) {
    const QList<DeclaranteOfrecido> ofrecidos =
        DeclarantesOfrecidos(*proceso.baseDatos, {proceso.numFormulario, proceso.sysUser});
    if (std::any_of(ofrecidos.begin(), ofrecidos.end(),
                    [&](const DeclaranteOfrecido& ofrecido) { return ofrecido.ruc == ruc; }))
        return;
    throw RechazaCon(u"El declarante %1 no está registrado para el usuario «%2»."_s.arg(ruc.Texto(), proceso.sysUser));
}

/// The form offers no other banks.
void ExigeBanco(Base& base, const QString& banco) {
    const QList<BancoOfrecido> bancos = BancosOfrecidos(base);
    if (!banco.isEmpty() && std::none_of(bancos.begin(), bancos.end(),
                                         [&](const BancoOfrecido& ofrecido) { return ofrecido.codigo == banco; }))
        throw RechazaCon(u"El banco «%1» no está en el catálogo."_s.arg(banco));
}

ClaveDeclaracion ClaveDe(const Proceso& proceso, const Argumentos& argumentos) {
    const std::optional<Periodo> periodo = Periodo::DeTabla(argumentos.periodo);
    const auto veredicto = periodo ? ValidaPeriodo(periodo->EnPantalla(), proceso.reloj.Hoy()) : std::nullopt;
    if (!veredicto)
        throw RechazaCon(u"El período no es válido."_s);
    Exige(*veredicto);
    const Ruc ruc(argumentos.ruc);
    ExigeDeclarante(proceso, ruc);
    return {.ruc = ruc, .periodo = *periodo, .formulario = proceso.numFormulario};
}

/// What the command line gives goes over what is stored. Interest and prior payments keep their stored value when they
/// aren't given; the amount to pay follows the debt.
void LlenaMontos(Declaracion& declaracion, const Argumentos& argumentos) {
    Montos& montos = declaracion.montos;
    if (argumentos.pagosPrevios)
        montos.Cambia(402, TextoAlSalir(402, *argumentos.pagosPrevios));
    if (argumentos.interes)
        montos.Cambia(404, TextoAlSalir(404, *argumentos.interes));
    montos.Cambia(410, argumentos.importe ? TextoAlSalir(410, *argumentos.importe) : montos.Texto(405));
}

void LlenaPago(Declaracion& declaracion, const Argumentos& argumentos) {
    if (argumentos.efectivo)
        declaracion.pago = {.forma = FormaDePago::Efectivo};
    if (argumentos.cheque)
        declaracion.pago = {.forma = FormaDePago::Cheque,
                            .banco = Recorta(argumentos.banco).toString(),
                            .numeroCheque = Recorta(*argumentos.cheque).toString()};
    declaracion.pago.importe = declaracion.montos.ImportePagar();
    if (argumentos.rectifica)
        declaracion.rectifica = Rectificacion::Si;
    else if (declaracion.rectifica == Rectificacion::SinResponder)
        declaracion.rectifica = Rectificacion::No;
}

/// Their file is a copy of what is told anyway: when it can't be written the declaration stands all the same.
void AnotaInconsistencias(Proceso& proceso, const Declaracion& declaracion, Informe& informe) {
    informe.inconsistencias = Inconsistencias(declaracion);
    if (!informe.inconsistencias->isEmpty())
        informe.codigo = kSalidaObservaciones;
    const QString ruta = RutaMens(proceso.sysPath, proceso.numFormulario);
    try {
        EscribeMens(ruta, *informe.inconsistencias);
        if (!informe.inconsistencias->isEmpty())
            informe.archivos.append(ruta);
    } catch (const Error& error) {
        if (informe.codigo == kSalidaBien)
            informe.codigo = kSalidaIncompleta;
        informe.mensajes.append({Icono::Exclamacion, error.Texto(), {}});
        informe.detalle = error.Detalle();
    }
}

void Importar(Proceso& proceso, const Argumentos& argumentos, LineaDeAvance& avance, Informe& informe) {
    const ClaveDeclaracion clave = ClaveDe(proceso, argumentos);
    const TrabajoUnico trabajo(*proceso.baseDatos, clave);
    CargaTrabajo(proceso, argumentos, clave, avance, informe);
}

void Declarar(Proceso& proceso, const Argumentos& argumentos, LineaDeAvance& avance, Informe& informe) {
    Base& base = *proceso.baseDatos;
    Declaracion declaracion;
    declaracion.clave = ClaveDe(proceso, argumentos);
    Exige(RechazaRucDeOcho(declaracion.clave.ruc));
    ExigeBanco(base, argumentos.banco);
    const TrabajoUnico trabajo(base, declaracion.clave);
    const EstadoGuardado conocida = EstadoGuardado::De(base, declaracion.clave);
    CargaTrabajo(proceso, argumentos, declaracion.clave, avance, informe);
    if (argumentos.pdf)
        PreparaCarpeta(*argumentos.pdf);
    CargaCasillas(base, declaracion);
    RefrescaTotales(base, declaracion);
    LlenaMontos(declaracion, argumentos);
    LlenaPago(declaracion, argumentos);
    avance.Dice(kGrabando);
    const ResultadoGrabacion grabacion = GrabaDeclaracion(base, declaracion, conocida, proceso.SuFirma());
    Exige(grabacion.veredicto);
    AnotaInconsistencias(proceso, declaracion, informe);
    informe.estado = grabacion.estado;
    informe.casillas = grabacion.casillas;
    informe.mensajes += grabacion.mensajes;
    if (argumentos.pdf) {
        avance.Dice(kImprimiendo);
        DejaPdf(proceso, declaracion.clave, *argumentos.pdf, informe);
    }
}

void Imprimir(Proceso& proceso, const Argumentos& argumentos, LineaDeAvance& avance, Informe& informe) {
    ClaveDeclaracion clave = ClaveDe(proceso, argumentos);
    clave.enviada = argumentos.enviada.has_value();
    clave.correl = argumentos.enviada.value_or(QString());
    avance.Dice(kImprimiendo);
    ImprimeEnPdf(proceso, clave, argumentos.anexos, *argumentos.pdf, informe);
}

void Validar(Proceso& proceso, const Argumentos& argumentos, Informe& informe) {
    Base& base = *proceso.baseDatos;
    Declaracion declaracion;
    declaracion.clave = ClaveDe(proceso, argumentos);
    if (!ExisteDeclaracion(base, declaracion.clave))
        throw RechazaCon(u"No hay una declaración registrada de %1 para %2."_s.arg(argumentos.ruc, argumentos.periodo));
    CargaCasillas(base, declaracion);
    if (const std::optional<Mensaje> aviso = AvisoDeImporte(declaracion))
        informe.mensajes.append(*aviso);
    AnotaInconsistencias(proceso, declaracion, informe);
    if (informe.inconsistencias->isEmpty())
        informe.mensajes.append(SinInconsistencias());
    informe.casillas = CasillasGuardadas(base, declaracion.clave);
}

/// Work tables of its own, on a server; what a crash left in them is of no use to a run that begins anew.
void TomaPuesto(Proceso& proceso) {
    if (const QString motivo = PorQueNoSeEscribe(*proceso.baseDatos); !motivo.isEmpty())
        throw RechazaCon(motivo);
    (void)OcupaPuesto(proceso);
}

/// The same declarations as the module's pickers: all of them for a user of kind "0", otherwise the user's own.
QList<FilaLista> LeeLista(Proceso& proceso, bool enviadas) {
    Base& base = *proceso.baseDatos;
    ConsultaSql consulta{
        u"SELECT A.DOC_ID_D, B.NOMBRE, A.PERIODO, A.ESTADO, A.RECTIFICA%1 FROM %2 AS A, CONT AS B "
        "WHERE A.DOC_ID_D=B.DOC_ID_D AND A.TIP_DOC_D=6 AND B.TIP_DOC_D=6 AND A.FORMULARIO=?"_s.arg(
            enviadas ? u", A.CORREL, A.CONTROL, A.NORDEN, A.FEC_ENV"_s : QString(), enviadas ? u"HCAB"_s : u"CAB"_s),
        {proceso.numFormulario}};
    LimitaAlUsuario(consulta, base, proceso.sysUser);
    Registros filas = base.Lee(consulta.texto + u" ORDER BY A.PERIODO DESC, A.DOC_ID_D"_s,
                               {consulta.valores.begin(), consulta.valores.end()});
    QList<FilaLista> lista;
    while (filas.Siguiente()) {
        FilaLista fila{filas.Texto(0), filas.Texto(1), filas.Texto(2), filas.Texto(3), filas.Texto(4), {}, {}, {}, {}};
        if (enviadas) {
            fila.correl = filas.Texto(5);
            fila.control = filas.Texto(6);
            fila.norden = filas.Texto(7);
            fila.fecEnv = filas.Texto(8);
        }
        lista.append(fila);
    }
    return lista;
}

} // namespace

void EjecutaOrden(Proceso& proceso, const Argumentos& argumentos, LineaDeAvance& avance, Informe& informe) {
    if (argumentos.orden == Orden::Importar || argumentos.orden == Orden::Declarar)
        TomaPuesto(proceso);
    switch (argumentos.orden) {
    case Orden::Importar: return Importar(proceso, argumentos, avance, informe);
    case Orden::Declarar: return Declarar(proceso, argumentos, avance, informe);
    case Orden::Validar: return Validar(proceso, argumentos, informe);
    case Orden::Imprimir: return Imprimir(proceso, argumentos, avance, informe);
    case Orden::Listar: informe.declaraciones = LeeLista(proceso, argumentos.enviadas);
    }
}

} // namespace xa518
