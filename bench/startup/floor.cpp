// The least that a program with such a list does: a bare window with a table that reads its rows when they are
// painted, and a SubRip file cut into rows without looking further.

#include <QAbstractTableModel>
#include <QApplication>
#include <QFile>
#include <QTableView>
#include <vector>

namespace {

struct Row {
  QByteArrayView time;
  QByteArrayView text;
};

class Rows final : public QAbstractTableModel {
 public:
  explicit Rows(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return;
    bytes_ = file.readAll();
    qsizetype at = 0;
    while (true) {
      const qsizetype arrow = bytes_.indexOf(" --> ", at);
      if (arrow < 0) break;
      const qsizetype line = bytes_.indexOf('\n', arrow);
      if (line < 0) break;
      qsizetype end = bytes_.indexOf("\r\n\r\n", line);
      if (end < 0) end = bytes_.size();
      rows_.push_back(
          {QByteArrayView(bytes_).sliced(arrow - 12, 12), QByteArrayView(bytes_).sliced(line + 1, end - line - 1)});
      at = end;
    }
  }
  int rowCount(const QModelIndex&) const override { return static_cast<int>(rows_.size()); }
  int columnCount(const QModelIndex&) const override { return 2; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole) return {};
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    return QString::fromUtf8(index.column() == 0 ? row.time : row.text);
  }

 private:
  QByteArray bytes_;
  std::vector<Row> rows_;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  Rows rows(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString());
  QTableView table;
  table.setModel(&rows);
  table.resize(1000, 700);
  table.show();
  return QApplication::exec();
}
