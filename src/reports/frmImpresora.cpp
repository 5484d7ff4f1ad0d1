#include "reports/frmImpresora.h"

#include "ui_frmImpresora.h"

#include <QStandardItemModel>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QString EstadoMostrado(const ColaImpresion& cola) {
    switch (cola.estado) {
    case EstadoCola::Detenida: return u"Detenida"_s;
    case EstadoCola::NoRecibe: return u"No recibe trabajos"_s;
    case EstadoCola::Lista: break;
    }
    return cola.predeterminada ? u"Predeterminada"_s : u"Lista"_s;
}

} // namespace

frmImpresora::frmImpresora(QList<ColaImpresion> colas, QWidget* padre)
    : Forma(padre), m_colas(std::move(colas)), m_ui(std::make_unique<Ui::frmImpresora>()) {
    m_ui->setupUi(this);
    LlenaLista();
    connect(m_ui->grdImpresoras, &GrillaDeLectura::FilaActivada, m_ui->CmdImpresora_0, &QPushButton::click);
    connect(m_ui->CmdImpresora_0, &QPushButton::clicked, this, [this] { Elige(Destino::Cola); });
    connect(m_ui->CmdImpresora_1, &QPushButton::clicked, this, [this] { Elige(Destino::Pdf); });
    connect(m_ui->CmdImpresora_2, &QPushButton::clicked, this, [this] { Salir(); });
    Prepara({m_ui->CmdImpresora_2});
    m_ui->grdImpresoras->setFocus();
}

frmImpresora::~frmImpresora() = default;

const ColaImpresion& frmImpresora::Cola() const {
    return m_colas.at(m_ui->grdImpresoras->Fila());
}

void frmImpresora::LlenaLista() {
    auto* filas = new QStandardItemModel(0, 2, this);
    filas->setHorizontalHeaderLabels({u"Impresora"_s, u"Estado"_s});
    int preferida = 0;
    for (const ColaImpresion& cola : std::as_const(m_colas)) {
        if (cola.predeterminada)
            preferida = filas->rowCount();
        filas->appendRow({new QStandardItem(cola.Titulo()), new QStandardItem(EstadoMostrado(cola))});
    }
    m_ui->grdImpresoras->setModel(filas);
    m_ui->grdImpresoras->AjustaColumnas(0);
    m_ui->grdImpresoras->PonFila(preferida);
}

void frmImpresora::Elige(Destino destino) {
    m_elegido = destino;
    Termina();
}

} // namespace xa518
