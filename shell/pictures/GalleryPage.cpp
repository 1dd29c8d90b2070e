// SPDX-License-Identifier: MIT
#include "shell/pictures/GalleryPage.h"

#include <QUrl>

namespace Kova::Shell {

namespace {

constexpr auto head = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>%1</title>
<style>
  body { font: 15px/1.45 sans-serif; margin: 2rem auto; max-width: 76rem; padding: 0 1rem; color: #222; background: #fff; }
  h1 { font-size: 1.5rem; } h2 { font-size: 1.15rem; margin-top: 2rem; }
  .pictures { display: grid; grid-template-columns: repeat(auto-fill, minmax(18rem, 1fr)); gap: 1rem; }
  figure { margin: 0; border: 1px solid #d5d5d5; border-radius: 6px; overflow: hidden; }
  .frame { display: flex; align-items: center; justify-content: center; height: 14rem; padding: .5rem; }
  .frame img { max-width: 100%; max-height: 100%; }
  figcaption { background: #f4f5f7; border-top: 1px solid #d5d5d5; padding: .5rem .75rem; overflow-wrap: anywhere; }
  figcaption small { color: #555; }
</style>
</head>
<body>
)";

QString link(const QString& file, const QString& content) {
    return QString("<a href=\"%1\">%2</a>").arg(QString::fromLatin1(QUrl::toPercentEncoding(file)), content);
}

QString figure(const GalleryEntry& entry) {
    const QString title = entry.subject.toHtmlEscaped();
    const QString shown = entry.png.isEmpty() ? entry.svg : entry.png;
    const QString image = QString(R"(<img src="%1" alt="%2" loading="lazy">)")
                              .arg(QString::fromLatin1(QUrl::toPercentEncoding(shown)), title);
    QStringList links;
    if (!entry.png.isEmpty())
        links.append(link(entry.png, "PNG"));
    if (!entry.svg.isEmpty())
        links.append(link(entry.svg, "SVG"));
    return QString("<figure><div class=\"frame\">%1</div>\n<figcaption><b>%2</b><br><small>%3%4%5</small>"
                   "</figcaption></figure>\n")
        .arg(link(shown, image), title, entry.summary.toHtmlEscaped(), entry.summary.isEmpty() ? "" : " &middot; ",
             links.join(" "));
}

} // namespace

QByteArray renderGalleryPage(const QStringList& sources, const std::vector<GalleryEntry>& entries) {
    const QString title = sources.join(", ").toHtmlEscaped();
    QString page = QString(head).arg(title);
    page += "<h1>" + title + "</h1>\n";
    if (entries.empty())
        page += "<p>There is nothing to show.</p>\n";
    QString view;
    for (const GalleryEntry& entry : entries) {
        if (entry.view != view) {
            page += view.isEmpty() ? "" : "</div>\n";
            view = entry.view;
            page += "<h2>" + view.toHtmlEscaped() + "</h2>\n<div class=\"pictures\">\n";
        }
        page += figure(entry);
    }
    page += view.isEmpty() ? "" : "</div>\n";
    page += "</body>\n</html>\n";
    return page.toUtf8();
}

} // namespace Kova::Shell
