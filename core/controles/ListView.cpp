#include "core/controles/ListView.h"

#include "core/vb/Conversion.h"
#include "core/vb/Error.h"

#include <QCollator>
#include <QFontMetrics>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

namespace controles {

namespace {

[[noreturn]] void FueraDeLimites() { throw vb::Error(35600, QStringLiteral("Índice fuera de los límites")); }
[[noreturn]] void PropiedadNoValida() { throw vb::Error(380, QStringLiteral("Valor de propiedad no válido")); }

// Rows sort as text the way the system compares words: without regard to case, accented letters beside
// their plain ones, blanks and punctuation before digits and digits before letters.
const QCollator& Cotejo() {
    static const QCollator c = [] {
        QCollator k(QLocale(QLocale::Spanish, QLocale::Mexico));
        k.setCaseSensitivity(Qt::CaseInsensitive);
        k.setNumericMode(false);
        k.setIgnorePunctuation(false);
        return k;
    }();
    return c;
}

Qt::Alignment Alineacion(int alineacion) {
    switch (alineacion) {
    case ListView::lvwColumnRight: return Qt::AlignRight | Qt::AlignVCenter;
    case ListView::lvwColumnCenter: return Qt::AlignHCenter | Qt::AlignVCenter;
    default: return Qt::AlignLeft | Qt::AlignVCenter;
    }
}

// Grid lines between cells, as the list's extended style draws them.
class DelegadoRejilla : public QStyledItemDelegate {
public:
    DelegadoRejilla(ListView* lista) : QStyledItemDelegate(lista), lista_(lista) {}
    void paint(QPainter* p, const QStyleOptionViewItem& opcion, const QModelIndex& indice) const override {
        QStyledItemDelegate::paint(p, opcion, indice);
        if (!lista_->GridLines()) return;
        p->save();
        p->setPen(QColor(0xD0, 0xD0, 0xD0));
        p->drawLine(opcion.rect.bottomLeft(), opcion.rect.bottomRight());
        p->drawLine(opcion.rect.topRight(), opcion.rect.bottomRight());
        p->restore();
    }

    // Every row as tall as its font needs, accents over capitals included.
    QSize sizeHint(const QStyleOptionViewItem& opcion, const QModelIndex& indice) const override {
        QSize tamano = QStyledItemDelegate::sizeHint(opcion, indice);
        tamano.setHeight(std::max(tamano.height(), ListView::AltoRenglon(opcion.font)));
        return tamano;
    }

private:
    ListView* lista_;
};

}  // namespace

int ListView::AltoRenglon(const QFont& letra) {
    const QFontMetrics m(letra);
    // The ink of the tallest letters the lists show, above the baseline, and the font's own descent.
    const QRect tinta = m.tightBoundingRect(QStringLiteral("ÁÉÍÓÚÑÜÂÊÔÅÄÖ|"));
    const int arriba = std::max(m.ascent(), -tinta.top());
    const int abajo = std::max(m.descent(), tinta.bottom());
    return arriba + abajo + 2 * 3;
}

// ---------------------------------------------------------------------------------------------------------
// Columns

void ColumnHeader::setText(const QString& texto) {
    texto_ = texto;
    lista_.headerItem()->setText(columna_, texto);
}

double ListView::PixelesPorTwip() const {
    const double escala = std::max(1.0, fontMetrics().averageCharWidth() / 5.0);
    return escala / TwipsPorPixel;
}

int ColumnHeader::Width() const {
    return static_cast<int>(std::lround(lista_.header()->sectionSize(columna_) / lista_.PixelesPorTwip()));
}

void ColumnHeader::setWidth(int twips) {
    lista_.header()->resizeSection(columna_, static_cast<int>(std::lround(std::max(twips, 0) * lista_.PixelesPorTwip())));
}

void ColumnHeader::setAlignment(int alineacion) {
    // The first column is always left-aligned.
    alineacion_ = columna_ == 0 ? ListView::lvwColumnLeft : alineacion;
    lista_.headerItem()->setTextAlignment(columna_, Alineacion(alineacion_));
    for (int i = 0; i < lista_.topLevelItemCount(); ++i)
        lista_.topLevelItem(i)->setTextAlignment(columna_, Alineacion(alineacion_));
}

ColumnHeader* ColumnHeaderCollection::Add(const QString& texto, int anchoTwips, int alineacion) {
    const int columna = Count();
    h_.push_back(std::unique_ptr<ColumnHeader>(new ColumnHeader(lista_, columna)));
    lista_.actualizaColumnas();
    ColumnHeader* h = h_.back().get();
    h->setText(texto);
    h->setWidth(anchoTwips);
    h->setAlignment(alineacion);
    return h;
}

void ColumnHeaderCollection::Clear() {
    h_.clear();
    lista_.actualizaColumnas();
}

ColumnHeader& ColumnHeaderCollection::operator()(int indice) {
    if (indice < 1 || indice > Count()) FueraDeLimites();
    return *h_[static_cast<size_t>(indice - 1)];
}

// ---------------------------------------------------------------------------------------------------------
// Rows

ListView* ListItem::Lista() const { return static_cast<ListView*>(treeWidget()); }

void ListItem::setText(const QString& texto) {
    QTreeWidgetItem::setText(0, texto);
    if (ListView* l = Lista(); l && l->SortKey() == 0) l->reubica(this);
}

QString ListItem::SubItems(int i) const {
    const ListView* l = Lista();
    if (i < 1 || (l && i >= l->encabezados_.Count())) PropiedadNoValida();
    return QTreeWidgetItem::text(i);
}

void ListItem::setSubItems(int i, const QString& texto) {
    ListView* l = Lista();
    if (i < 1 || (l && i >= l->encabezados_.Count())) PropiedadNoValida();
    QTreeWidgetItem::setText(i, texto);
    if (l) {
        setTextAlignment(i, Alineacion(l->encabezados_(i + 1).Alignment()));
        if (l->SortKey() == i) l->reubica(this);
    }
}

int ListItem::Index() const {
    const QTreeWidget* t = treeWidget();
    return t ? t->indexOfTopLevelItem(const_cast<ListItem*>(this)) + 1 : 0;
}

void ListItem::setSelected(bool seleccionado) {
    ListView* l = Lista();
    if (!l) {
        QTreeWidgetItem::setSelected(seleccionado);
        return;
    }
    if (seleccionado) {
        if (!l->MultiSelect()) l->clearSelection();
        QTreeWidgetItem::setSelected(true);
        l->setCurrentItem(this, 0, QItemSelectionModel::NoUpdate);
    } else {
        QTreeWidgetItem::setSelected(false);
    }
}

void ListItem::setSmallIcon(const vb::Variant& icono) {
    icono_ = icono;
    const bool marcado = !icono.isNull() && !icono.isEmpty() && vb::Val(icono.text()) != 0;
    if (marcado) {
        const QStyle* estilo = treeWidget() ? treeWidget()->style() : nullptr;
        setIcon(0, estilo ? estilo->standardIcon(QStyle::SP_DialogApplyButton) : QIcon());
    } else {
        setIcon(0, QIcon());
    }
}

void ListItem::EnsureVisible() {
    if (treeWidget()) treeWidget()->scrollToItem(this);
}

bool ListItem::operator<(const QTreeWidgetItem& otro) const {
    if (const ListView* l = Lista()) return l->compara(*this, otro) < 0;
    return QTreeWidgetItem::operator<(otro);
}

ListItem* ListItemCollection::Add(const QString& texto) {
    auto* item = new ListItem;
    item->QTreeWidgetItem::setText(0, texto);
    for (int c = 1; c < lista_.encabezados_.Count(); ++c)
        item->setTextAlignment(c, Alineacion(lista_.encabezados_(c + 1).Alignment()));
    if (lista_.checkboxes_) item->setCheckState(0, Qt::Unchecked);
    const bool primero = lista_.topLevelItemCount() == 0;
    if (lista_.sorted_)
        lista_.insertTopLevelItem(lista_.posicionOrdenada(*item), item);
    else
        lista_.addTopLevelItem(item);
    if (primero) item->setSelected(true);
    return item;
}

void ListItemCollection::Clear() {
    // Taken out rather than reset, so that the columns keep their widths.
    lista_.clearSelection();
    qDeleteAll(lista_.invisibleRootItem()->takeChildren());
}

int ListItemCollection::Count() const { return lista_.topLevelItemCount(); }

ListItem& ListItemCollection::operator()(int indice) {
    if (indice < 1 || indice > Count()) FueraDeLimites();
    return *static_cast<ListItem*>(lista_.topLevelItem(indice - 1));
}

void ListItemCollection::Remove(int indice) {
    if (indice < 1 || indice > Count()) FueraDeLimites();
    delete lista_.takeTopLevelItem(indice - 1);
}

// ---------------------------------------------------------------------------------------------------------
// The list

ListView::ListView(QWidget* padre) : QTreeWidget(padre), encabezados_(*this), renglones_(*this) {
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setItemsExpandable(false);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSortingEnabled(false);
    setItemDelegate(new DelegadoRejilla(this));
    header()->setStretchLastSection(false);
    header()->setSectionsClickable(true);
    header()->setSectionsMovable(false);
    header()->setSortIndicatorShown(false);
    actualizaColumnas();

    connect(header(), &QHeaderView::sectionClicked, this, [this](int columna) { emit ColumnClick(columna + 1); });
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item, int) {
        emit ItemClick(static_cast<ListItem*>(item));
        emit Click();
    });
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem*, int) { emit DblClick(); });
}

ListView::~ListView() = default;

void ListView::actualizaColumnas() {
    const int n = encabezados_.Count();
    setColumnCount(std::max(n, 1));
    if (n == 0) headerItem()->setText(0, QString());
}

ListItem* ListView::SelectedItem() const {
    QTreeWidgetItem* actual = currentItem();
    if (actual && actual->isSelected()) return static_cast<ListItem*>(actual);
    const QList<QTreeWidgetItem*> elegidos = selectedItems();
    if (elegidos.isEmpty()) return nullptr;
    // The first in list order.
    QTreeWidgetItem* primero = *std::min_element(elegidos.begin(), elegidos.end(), [this](auto* a, auto* b) {
        return indexOfTopLevelItem(a) < indexOfTopLevelItem(b);
    });
    return static_cast<ListItem*>(primero);
}

void ListView::setSelectedItem(ListItem* item) {
    if (!item) {
        clearSelection();
        setCurrentItem(nullptr);
        return;
    }
    item->setSelected(true);
}

void ListView::setSortKey(int columna) {
    if (columna < 0) PropiedadNoValida();
    sortKey_ = columna;
    if (sorted_) ordena();
}

void ListView::setSortOrder(int orden) {
    if (orden != lvwAscending && orden != lvwDescending) PropiedadNoValida();
    sortOrder_ = orden;
    if (sorted_) ordena();
}

void ListView::setSorted(bool ordenada) {
    sorted_ = ordenada;
    if (sorted_) ordena();
}

int ListView::compara(const QTreeWidgetItem& a, const QTreeWidgetItem& b) const {
    return Cotejo().compare(a.text(sortKey_), b.text(sortKey_));
}

bool ListView::vaAntes(const QTreeWidgetItem& a, const QTreeWidgetItem& b) const {
    const int c = compara(a, b);
    return sortOrder_ == lvwDescending ? c > 0 : c < 0;
}

int ListView::posicionOrdenada(const QTreeWidgetItem& item) const {
    // After the rows that sort equal to it, so that rows added in order keep that order among equals.
    int bajo = 0, alto = topLevelItemCount();
    while (bajo < alto) {
        const int medio = (bajo + alto) / 2;
        if (vaAntes(item, *topLevelItem(medio)))
            alto = medio;
        else
            bajo = medio + 1;
    }
    return bajo;
}

void ListView::ordena() {
    if (topLevelItemCount() < 2) return;
    // Past the last column there is nothing to compare: every row is equal and keeps its place.
    if (sortKey_ >= columnCount()) return;
    sortItems(sortKey_, sortOrder_ == lvwDescending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void ListView::reubica(ListItem* item) {
    if (!sorted_) return;
    const int n = topLevelItemCount();
    const int actual = indexOfTopLevelItem(item);
    if (actual < 0) return;
    const bool enSuLugar = (actual == 0 || !vaAntes(*item, *topLevelItem(actual - 1))) &&
                           (actual == n - 1 || !vaAntes(*topLevelItem(actual + 1), *item));
    if (enSuLugar) return;
    const bool seleccionado = item->isSelected();
    const bool esActual = currentItem() == item;
    const QSignalBlocker bloqueo(this);
    takeTopLevelItem(actual);
    insertTopLevelItem(posicionOrdenada(*item), item);
    if (seleccionado) item->QTreeWidgetItem::setSelected(true);
    if (esActual) setCurrentItem(item, 0, QItemSelectionModel::NoUpdate);
}

ListItem* ListView::FindItem(const QString& texto, int donde, int inicio, int coincidencia) {
    const int n = renglones_.Count();
    if (n == 0) return nullptr;
    if (inicio < 1 || inicio > n) FueraDeLimites();
    const auto coincide = [&](const QString& s) {
        return coincidencia == lvwPartial ? s.startsWith(texto, Qt::CaseInsensitive)
                                          : s.compare(texto, Qt::CaseInsensitive) == 0;
    };
    for (int i = inicio; i <= n; ++i) {
        ListItem& item = renglones_(i);
        switch (donde) {
        case lvwSubItem:
            for (int c = 1; c < encabezados_.Count(); ++c)
                if (coincide(item.QTreeWidgetItem::text(c))) return &item;
            break;
        case lvwTag:
            if (coincide(item.Tag().text())) return &item;
            break;
        default:
            if (coincide(item.Text())) return &item;
            break;
        }
    }
    return nullptr;
}

void ListView::GridLines(bool lineas) {
    gridLines_ = lineas;
    viewport()->update();
}

void ListView::FullRowSelect(bool fila) {
    fullRowSelect_ = fila;
    setAllColumnsShowFocus(fila);
}

void ListView::MultiSelect(bool varias) {
    setSelectionMode(varias ? QAbstractItemView::ExtendedSelection : QAbstractItemView::SingleSelection);
}

void ListView::Checkboxes(bool casillas) {
    checkboxes_ = casillas;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = topLevelItem(i);
        if (casillas)
            item->setCheckState(0, item->checkState(0));
        else
            item->setData(0, Qt::CheckStateRole, QVariant());
    }
}

void ListView::HideColumnHeaders(bool ocultar) { header()->setVisible(!ocultar); }

void ListView::EstiloExtendido(int mascara, int valor) {
    if (mascara & LVS_EX_GRIDLINES) GridLines(valor & LVS_EX_GRIDLINES);
    if (mascara & LVS_EX_CHECKBOXES) Checkboxes(valor & LVS_EX_CHECKBOXES);
    if (mascara & LVS_EX_FULLROWSELECT) FullRowSelect(valor & LVS_EX_FULLROWSELECT);
}

void ListView::keyPressEvent(QKeyEvent* e) {
    QTreeWidgetItem* antes = currentItem();
    QTreeWidget::keyPressEvent(e);
    // Moving with the keys selects a row as a click does.
    QTreeWidgetItem* despues = currentItem();
    if (despues && despues != antes) emit ItemClick(static_cast<ListItem*>(despues));
}

// ---------------------------------------------------------------------------------------------------------

void OrdenaPorColumna(ListView& lista, int indiceEncabezado) {
    ColumnHeader& encabezado = lista.ColumnHeaders()(indiceEncabezado);
    const vb::Variant& tag = encabezado.Tag();
    qint32 valor = tag.isEmpty() || tag.isNull() || tag.text().trimmed().isEmpty() ? 0 : vb::CLng(tag);
    if (lista.SortKey() == indiceEncabezado - 1) {
        valor = ~valor;
        encabezado.setTag(vb::Variant(valor));
    }
    // One sort, with key and order both in place.
    lista.setSorted(false);
    lista.setSortOrder(std::abs(valor) == 1 ? ListView::lvwDescending : ListView::lvwAscending);
    lista.setSortKey(indiceEncabezado - 1);
    lista.setSorted(true);
}

ListView* ListaEnMarco(QWidget* pantalla, QGroupBox*& marco, const QString& nombreMarco) {
    marco = new QGroupBox(pantalla);
    marco->setObjectName(nombreMarco);
    auto* lista = new ListView(marco);
    lista->setObjectName(QStringLiteral("ListView1"));
    auto* disposicion = new QVBoxLayout(marco);
    disposicion->addWidget(lista);
    return lista;
}

}  // namespace controles
