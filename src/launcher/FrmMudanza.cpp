#include "launcher/FrmMudanza.h"

#include "launcher/Session.h"
#include "platform/Notices.h"
#include "ui_FrmMudanza.h"
#include "widgets/Application.h"
#include "widgets/FieldKeys.h"
#include "widgets/WidgetHelpers.h"

namespace xa518 {

using namespace Qt::StringLiterals;

FrmMudanza::FrmMudanza(Avisos& avisos, Hacia hacia, const QString& propuesto, Revision revisa, QWidget* padre)
    : Forma(padre), m_ui(std::make_unique<Ui::FrmMudanza>()), m_avisos(&avisos), m_revisa(std::move(revisa)) {
    m_ui->setupUi(this);
    const bool aServidor = hacia == Hacia::Servidor;
    setWindowTitle(aServidor ? u"Mudar a un servidor"_s : u"Volver a un archivo"_s);
    m_ui->LblDestino->setText(aServidor ? u"&Conexión:"_s : u"&Archivo:"_s);
    m_ui->LblExplica->setText(
        aServidor
            ? u"Por ejemplo «host=servidor dbname=base sslmode=verify-full» o «service=nombre». La contraseña no va"
              " aquí, sino en el archivo .pgpass del usuario. La base de este equipo queda como está."_s
            : u"El nombre de un archivo que todavía no existe, en este equipo. La base del servidor queda como"
              " está."_s);
    m_ui->TxtDestino->setText(propuesto);
    TextoSinCorte(*m_ui->TxtDestino);
    connect(m_ui->CmdAceptar, &QPushButton::clicked, this, Protegido([this] { Acepta(); }));
    connect(m_ui->CmdCancelar, &QPushButton::clicked, this, &FrmMudanza::reject);
    Prepara({m_ui->CmdCancelar});
    SaleConEsc();
}

FrmMudanza::~FrmMudanza() = default;

void FrmMudanza::Acepta() {
    const QString destino = m_ui->TxtDestino->text().trimmed();
    if (const Veredicto veredicto = m_revisa(destino); !veredicto) {
        m_avisos->Muestra(veredicto.Motivo());
        Enfoca(*m_ui->TxtDestino);
        return;
    }
    m_destino = destino;
    Termina();
}

} // namespace xa518
