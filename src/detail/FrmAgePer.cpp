#include "detail/FrmAgePer.h"

#include "detail/FrmDetAgePer.h"
#include "detail/ShowVerdict.h"
#include "detail/ui_FrmAgePer.h"
#include "form518/LastDelete.h"
#include "values/Format.h"
#include "values/Text.h"
#include "widgets/Application.h"
#include "widgets/FieldFilters.h"
#include "widgets/FieldFocus.h"
#include "widgets/FieldKeys.h"
#include "widgets/HourGlass.h"
#include "widgets/ReadablePalette.h"

#include <QShortcut>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLargoSinTipo = 8;
const QString kMascara = u"###,###,###,##0.#0"_s;

int Campo(ColumnaComprobante columna) {
    return static_cast<int>(columna);
}

/// Wanted: the mask goes to the amount charged and the rate; the perception shows as it is stored, since
/// it has been rounded twice and no mask may round it again.
QList<ColumnaDeGrilla> Columnas() {
    const auto columna = [](const QString& titulo, ColumnaComprobante campo, const QString& mascara = {}) {
        const bool derecha = campo >= ColumnaComprobante::Base;
        return ColumnaDeGrilla{titulo, Campo(campo), derecha, mascara};
    };
    using enum ColumnaComprobante;
    return {columna(u"\nSerie\nComprobante"_s, Serie),
            columna(u"\nNúmero\nComprobante"_s, Numero),
            columna(u"Fecha\nde emisión\nComprobante"_s, Fecha),
            columna(u"Monto\nCobrado"_s, Base, kMascara),
            columna(u"Tasa"_s, Tasa, kMascara),
            columna(u"Percepción"_s, Percepcion)};
}

} // namespace

FrmAgePer::FrmAgePer(EntornoDetalle entorno, ModoDetalle modo, const FilaCliente& fila, QWidget* padre)
    : Forma(padre)
    , m_ui(std::make_unique<Ui::FrmAgePer>())
    , m_entorno(std::move(entorno))
    , m_modo(modo)
    , m_comprobantes(Columnas()) {
    const RelojDeArena reloj;
    m_ui->setupUi(this);
    Prepara({m_ui->CmdSalir});
    LlenaTiposDeDocumento(*m_ui->CmbTipDoc, m_entorno.base, fila.tipDocPer);
    Cabeceragrilla();
    PonDisposicion(Disposicion::Persona);
    PreparaCampos();
    ConectaBotones();
    if (!EsNuevo())
        MuestraCliente(fila);
    if (m_modo == ModoDetalle::Ver)
        DesActiva(); // last of all, so that no layout enables a field again
}

FrmAgePer::~FrmAgePer() = default;

void FrmAgePer::Cabeceragrilla() {
    m_ui->GrdPer->setModel(&m_comprobantes);
}

void FrmAgePer::PreparaCampos() {
    const auto marca = [this] { m_hayCambiosCliente = true; };
    QLineEdit& numero = *m_ui->TxtNumDoc;
    const auto regla = [this] { return ReglaDe(m_ui->CmbTipDoc->Item()); };
    FiltraTeclas(
        numero, [regla](int tecla) { return FiltraTeclaDocumento(tecla, regla()); },
        [regla] { return TeclasDeDocumento(regla()); });
    AlEntrar(numero, [regla, &numero] {
        const int largo = regla().limite;
        LimitaTecleo(numero, largo == 0 ? kLargoSinTipo : largo);
    });
    for (QLineEdit* nombre : {m_ui->TxtApePat, m_ui->TxtApeMat, m_ui->TxtNombres})
        SoloNombre(*nombre);
    for (QLineEdit* campo : {m_ui->TxtNumDoc, m_ui->TxtApePat, m_ui->TxtApeMat, m_ui->TxtNombres}) {
        SinPegar(*campo);
        EntrarComoTab(*campo);
        AlTeclear(*campo, marca);
    }
    connect(m_ui->CmbTipDoc, &ListaCodigos::Elegido, this, [this] { AlElegirTipoDoc(); });
    connect(&numero, &QLineEdit::textEdited, this, Protegido([this] { AlTeclearDocumento(); }));
}

void FrmAgePer::ConectaBotones() {
    const auto alPulsar = [this](QAbstractButton* boton, void (FrmAgePer::*manejador)()) {
        connect(boton, &QAbstractButton::clicked, this, Protegido([this, manejador] { (this->*manejador)(); }));
    };
    alPulsar(m_ui->CmdOpciones_0, &FrmAgePer::Nuevo);
    alPulsar(m_ui->CmdOpciones_1, &FrmAgePer::Modificar);
    alPulsar(m_ui->CmdOpciones_2, &FrmAgePer::Eliminar);
    alPulsar(m_ui->CmdSalir, &FrmAgePer::Salir);
    connect(m_ui->CmdAceptar, &QPushButton::clicked, this, Protegido([this] {
                if (Acepta())
                    Termina();
            }));
    connect(new QShortcut(QKeySequence::Undo, this), &QShortcut::activated, this, Protegido([this] { Recupera(); }));
    connect(m_ui->GrdPer, &GrillaDeLectura::FilaActivada, this, Protegido([this] { Modificar(); }));
}

void FrmAgePer::MuestraCliente(const FilaCliente& fila) {
    m_ui->CmbTipDoc->Elige(fila.tipDocPer);
    m_ui->TxtNumDoc->setText(Recorta(fila.numDocPer).toString());
    FijaIdentidad();
    if (Datos().EsDeEmpresa()) {
        PonDisposicion(Disposicion::Empresa);
        m_ui->TxtNombres->setText(fila.desRazon);
        return;
    }
    PonDisposicion(Disposicion::Persona);
    m_ui->TxtApePat->setText(fila.apellidoP);
    m_ui->TxtApeMat->setText(fila.apellidoM);
    m_ui->TxtNombres->setText(fila.nombres);
}

void FrmAgePer::DesActiva() {
    ComoSoloLectura(*this);
    for (QWidget* campo : QList<QWidget*>{m_ui->CmbTipDoc, m_ui->TxtNumDoc, m_ui->TxtApePat, m_ui->TxtApeMat,
                                          m_ui->TxtNombres, m_ui->CmdOpciones_0, m_ui->CmdOpciones_2, m_ui->CmdAceptar})
        campo->setEnabled(false);
    m_ui->CmdOpciones_1->setText(u"&Detalle"_s);
}

void FrmAgePer::AlActivar() {
    const int fila = m_ui->GrdPer->Fila();
    LigaGrilla();
    m_ui->GrdPer->PonFila(fila);
    m_ui->GrdPer->AjustaColumnas(Campo(ColumnaComprobante::Numero));
}

void FrmAgePer::AlElegirTipoDoc() {
    const QString tipo = m_ui->CmbTipDoc->Codigo();
    if (tipo != m_ultimoTipo)
        m_ui->TxtNumDoc->clear();
    m_ultimoTipo = tipo;
    LimitaTecleo(*m_ui->TxtNumDoc, ReglaDe(m_ui->CmbTipDoc->Item()).limite);
    PonDisposicion(AlElegirTipo(Datos()));
}

void FrmAgePer::AlTeclearDocumento() {
    const DatosCliente datos = Datos();
    if (const std::optional<Disposicion> disposicion = AlTeclearNumero(datos))
        PonDisposicion(*disposicion);
    const auto yaRegistrado = [&] { return EsNuevo() && ClientesTrabajo(m_entorno.base).Existe(datos.Clave()); };
    (void)Pasa(ValidaAlTeclear(datos, m_entorno.declarante, yaRegistrado));
}

void FrmAgePer::PonDisposicion(Disposicion disposicion) {
    const AspectoNombres aspecto = AspectoDe(disposicion);
    m_ui->Label1->setVisible(aspecto.apellidos);
    m_ui->Label3->setVisible(aspecto.apellidos);
    m_ui->TxtApePat->setEnabled(aspecto.apellidos);
    m_ui->TxtApeMat->setEnabled(aspecto.apellidos);
    m_ui->Label4->setText(aspecto.rotulo);
    LimitaTecleo(*m_ui->TxtNombres, aspecto.limite);
}

void FrmAgePer::FijaIdentidad() {
    m_ui->CmbTipDoc->setEnabled(false);
    m_ui->TxtNumDoc->setEnabled(false);
}

void FrmAgePer::Nuevo() {
    RelojDeArena reloj;
    const DatosCliente datos = Datos();
    const auto yaRegistrado = [&] { return EsNuevo() && ClientesTrabajo(m_entorno.base).Existe(datos.Clave()); };
    if (!Pasa(ValidaParaComprobante(datos, m_entorno.declarante, yaRegistrado)))
        return;
    reloj.Suelta();
    AbreComprobante(ModoDetalle::Nuevo, {.clave = {.cliente = datos.Clave()}});
    FijaIdentidad(); // wanted also when no voucher was entered
}

void FrmAgePer::Modificar() {
    RelojDeArena reloj;
    if (m_ui->GrdPer->Fila() < 0)
        return;
    const DatosCliente datos = Datos();
    if (datos.EsRuc() && !Pasa(ValidaRucDeCliente(datos.numero, m_entorno.declarante)))
        return;
    reloj.Suelta();
    AbreComprobante(m_modo == ModoDetalle::Ver ? m_modo : ModoDetalle::Modificar, Seleccionado());
}

void FrmAgePer::AbreComprobante(ModoDetalle modo, const Comprobante& comprobante) {
    FrmDetAgePer detalle(m_entorno, modo, comprobante, this);
    AbreModal(detalle);
}

void FrmAgePer::Eliminar() {
    const RelojDeArena reloj;
    if (m_ui->GrdPer->Fila() < 0 || !ConfirmaEliminacion(m_entorno.avisos))
        return;
    ComprobantesTrabajo(m_entorno.base).Elimina(Seleccionado().clave);
    LigaGrilla();
    m_ui->GrdPer->PonFila(0);
}

void FrmAgePer::Recupera() {
    if (m_modo == ModoDetalle::Ver)
        return;
    const UltimoBorrado::Vuelta vuelta =
        UltimoBorrado(m_entorno.base).DevuelveEn(UltimoBorrado::Clase::Comprobante, {.cliente = Datos().Clave()});
    if (vuelta.motivo)
        m_entorno.avisos.Muestra(*vuelta.motivo);
    if (!vuelta.hecha)
        return;
    const int fila = m_ui->GrdPer->Fila();
    LigaGrilla();
    m_ui->GrdPer->PonFila(fila);
}

bool FrmAgePer::Acepta() {
    const DatosCliente datos = Datos();
    if (!Pasa(ValidaParaAceptar(datos, m_entorno.declarante)))
        return false;
    if (m_comprobantes.rowCount() == 0) {
        // A voucher of perception is meant: the text is known so.
        Rechaza(m_entorno.avisos, u"Ingrese al menos un comprobante de pago"_s);
        return false;
    }
    ClientesTrabajo clientes(m_entorno.base);
    if (!EsNuevo()) {
        clientes.Modifica(datos.Clave(), datos.Nombres(), Totales());
        return true;
    }
    if (clientes.Existe(datos.Clave()))
        return Pasa(ClienteRegistrado(datos));
    clientes.Agrega(datos.Clave(), datos.Nombres(), Totales());
    return true;
}

void FrmAgePer::Salir() {
    if (m_modo == ModoDetalle::Ver) {
        Termina();
        return;
    }
    ClientesTrabajo clientes(m_entorno.base);
    const ClaveCliente cliente = Datos().Clave();
    if (m_comprobantes.rowCount() == 0 && !EsNuevo()) {
        if (!Confirma(m_entorno.avisos, u"No hay comprobantes. Si sale se borrará este registro. ¿Esta Seguro?"_s))
            return;
        clientes.Borra(cliente);
        Termina();
        return;
    }
    if (!EsNuevo())
        clientes.EscribeTotales(cliente, Totales()); // they stay true even if the names aren't saved: wanted
    if (m_hayCambiosCliente && PreguntaGuardar(m_entorno.avisos))
        (void)Acepta(); // it closes even when that is refused: wanted, the question is about leaving
    if (EsNuevo())
        clientes.BarreSinCliente(cliente);
    Termina();
}

void FrmAgePer::LigaGrilla() {
    const ClaveCliente cliente = Datos().Clave();
    m_comprobantes.Consulta(m_entorno.base, ComprobantesTrabajo::SqlDeCliente(cliente));
    m_ui->lblNumTrab->setText(u"   Registros      "_s + QString::number(m_comprobantes.rowCount()));
    ActualizaTotales();
}

void FrmAgePer::ActualizaTotales() {
    const ClientesTrabajo::Sumas sumas = ClientesTrabajo(m_entorno.base).SumaComprobantes(Datos().Clave());
    m_ui->TxtBase->setText(Format(sumas.base, u"##############0.#0"));
    m_ui->TxtPercepcion->setText(Format(sumas.percepcion, kMascara));
}

bool FrmAgePer::Pasa(const VeredictoCliente& veredicto) {
    return Atiende(m_entorno.avisos, veredicto, [this](CampoCliente campo) -> QWidget& { return Control(campo); });
}

QWidget& FrmAgePer::Control(CampoCliente campo) const {
    switch (campo) {
    case CampoCliente::TipoDoc: return *m_ui->CmbTipDoc;
    case CampoCliente::NumDoc: return *m_ui->TxtNumDoc;
    case CampoCliente::ApellidoP: return *m_ui->TxtApePat;
    case CampoCliente::Nombres: break;
    }
    return *m_ui->TxtNombres;
}

DatosCliente FrmAgePer::Datos() const {
    return {.codigo = CodigoDocumento::De(m_ui->CmbTipDoc->Codigo()),
            .numero = m_ui->TxtNumDoc->text(),
            .apellidoP = m_ui->TxtApePat->text(),
            .apellidoM = m_ui->TxtApeMat->text(),
            .nombres = m_ui->TxtNombres->text()};
}

TotalesCliente FrmAgePer::Totales() const {
    const auto monto = [](const QLineEdit& campo) { return Importe::Lee(campo.text()).value_or(Importe()); };
    return {
        .ctdDocs = m_comprobantes.rowCount(), .base = monto(*m_ui->TxtBase), .percepcion = monto(*m_ui->TxtPercepcion)};
}

Comprobante FrmAgePer::Seleccionado() const {
    using enum ColumnaComprobante;
    const auto texto = [this](ColumnaComprobante columna) {
        return m_comprobantes.Texto(m_ui->GrdPer->Fila(), Campo(columna));
    };
    return {
        .clave = {.cliente = Datos().Clave(), .serie = texto(Serie), .numero = texto(Numero), .tipCp = texto(TipCp)},
        .campos = {.cpFact = texto(CpFact),
                   .listaClie = texto(ListaClie),
                   .medPago = texto(MedPago),
                   .fecha = texto(Fecha),
                   .base = MontoEscrito(texto(Base)),
                   .percepcion = Importe::Lee(texto(Percepcion)),
                   .tasa = texto(Tasa)}};
}

} // namespace xa518
