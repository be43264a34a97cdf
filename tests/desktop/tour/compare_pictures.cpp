// Compares the tour's pictures with those that are kept: compare_pictures NOW KEPT DIFFERENCES.
// What differs becomes a picture in DIFFERENCES: as kept, as it is now, and what is not the same in
// red. With --renew in the place of DIFFERENCES the pictures of now are kept from here on.
//
// Pictures are kept in half their size and in 256 colours. They are compared by the mean difference
// of blocks: a letter that changed counts, another shade at the edge of one does not.

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string_view>
#include <vector>

namespace {

constexpr int kBlock = 8;        // pixels of the kept picture
constexpr int kLargestMean = 4;  // of 255, over a block's pixels and colours
constexpr qsizetype kColors = 256;

QImage Half(const QImage& picture) {
  return picture
      .scaled(picture.width() / 2, picture.height() / 2, Qt::IgnoreAspectRatio,
              Qt::SmoothTransformation)
      .convertToFormat(QImage::Format_RGB32);
}

int Difference(QRgb one, QRgb other) {
  return std::abs(qRed(one) - qRed(other)) + std::abs(qGreen(one) - qGreen(other)) +
         std::abs(qBlue(one) - qBlue(other));
}

// The fewest steps that let every colour have its like among so many as a palette takes.
QList<QRgb> Palette(const std::vector<QRgb>& commonestFirst) {
  for (int unlike = 1;; unlike += 3) {
    QList<QRgb> palette;
    for (const QRgb color : commonestFirst) {
      const auto isLike = [&](QRgb other) { return Difference(color, other) < unlike; };
      if (std::ranges::none_of(palette, isLike)) palette.append(color);
      if (palette.size() > kColors) break;
    }
    if (palette.size() <= kColors) return palette;
  }
}

QImage InFewColors(const QImage& picture) {
  std::map<QRgb, int> counts;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) ++counts[picture.pixel(x, y)];
  std::vector<QRgb> colors;
  for (const auto& entry : counts) colors.push_back(entry.first);
  std::ranges::stable_sort(colors, std::ranges::greater(),
                           [&](QRgb color) { return counts[color]; });
  const QList<QRgb> table = Palette(colors);
  std::map<QRgb, int> index;
  for (const auto& entry : counts) {
    const auto nearest = std::ranges::min_element(
        table, {}, [&](QRgb color) { return Difference(color, entry.first); });
    index[entry.first] = static_cast<int>(nearest - table.begin());
  }
  QImage few(picture.size(), QImage::Format_Indexed8);
  few.setColorTable(table);
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      few.setPixel(x, y, static_cast<uint>(index[picture.pixel(x, y)]));
  return few;
}

// The blocks in which the two are not the same.
std::vector<QRect> Differences(const QImage& kept, const QImage& now) {
  std::vector<QRect> blocks;
  for (int top = 0; top < now.height(); top += kBlock)
    for (int left = 0; left < now.width(); left += kBlock) {
      const QRect block = QRect(left, top, kBlock, kBlock) & now.rect();
      int sum = 0;
      for (int y = block.top(); y <= block.bottom(); ++y)
        for (int x = block.left(); x <= block.right(); ++x)
          sum += Difference(kept.pixel(x, y), now.pixel(x, y));
      if (sum > kLargestMean * 3 * block.width() * block.height()) blocks.push_back(block);
    }
  return blocks;
}

void ShowDifference(const QImage& kept, const QImage& now, const std::vector<QRect>& blocks,
                    const QString& file) {
  constexpr int kGap = 8;
  const int step = std::max(kept.width(), now.width()) + kGap;
  QImage all(3 * step - kGap, std::max(kept.height(), now.height()), QImage::Format_RGB32);
  all.fill(Qt::gray);
  QPainter painter(&all);
  painter.drawImage(0, 0, kept);
  painter.drawImage(step, 0, now);
  painter.setOpacity(0.25);
  painter.drawImage(2 * step, 0, now);
  painter.setOpacity(0.7);
  for (const QRect& block : blocks) painter.fillRect(block.translated(2 * step, 0), Qt::red);
  painter.end();
  all.save(file);
}

bool Same(const QString& name, const QDir& nowAt, const QDir& keptAt, const QDir& differences) {
  const QImage now = Half(QImage(nowAt.filePath(name)));
  const QImage kept = QImage(keptAt.filePath(name)).convertToFormat(QImage::Format_RGB32);
  std::vector<QRect> blocks{now.rect()};
  if (now.size() == kept.size()) blocks = Differences(kept, now);
  if (blocks.empty()) return true;
  const QString file = differences.filePath(name);
  ShowDifference(kept, now, blocks, file);
  std::printf("%s differs in %zu places: see %s\n", qPrintable(name), blocks.size(),
              qPrintable(file));
  return false;
}

QStringList PicturesIn(const QDir& folder) {
  return folder.entryList({"*.png"}, QDir::Files, QDir::Name);
}

int Renew(const QDir& nowAt, const QDir& keptAt) {
  for (const QString& name : PicturesIn(keptAt)) QFile::remove(keptAt.filePath(name));
  for (const QString& name : PicturesIn(nowAt)) {
    const QImage few = InFewColors(Half(QImage(nowAt.filePath(name))));
    if (!few.save(keptAt.filePath(name), "PNG", 0)) return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
  const QGuiApplication app(argc, argv);
  if (argc != 4) {
    std::fputs("usage: compare_pictures NOW KEPT DIFFERENCES|--renew\n", stderr);
    return 2;
  }
  const QDir now(argv[1]), kept(argv[2]);
  if (std::string_view(argv[3]) == "--renew") return Renew(now, kept);
  const QDir differences(argv[3]);
  differences.mkpath(".");
  QStringList names = PicturesIn(now) + PicturesIn(kept);
  names.sort();
  names.removeDuplicates();
  bool same = !names.isEmpty();
  for (const QString& name : names) same = Same(name, now, kept, differences) && same;
  return same ? EXIT_SUCCESS : EXIT_FAILURE;
}
