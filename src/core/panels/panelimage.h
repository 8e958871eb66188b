#pragma once

#include <QList>
#include <QString>

// One picture item of a panel: which picture to draw, and the texts written on it.
// Side-column items carry the panel's name, the port text and the comment of their row;
// process pictures carry a port text and a comment only.
struct CPanelImageItem
{
    int BitmapId = 0;
    QString Name;
    QString PortText;
    QString Comment;

    bool operator==(const CPanelImageItem&) const = default;
};

// A panel's picture as data: the size of one item and the items from top to bottom. The
// editor draws it; white in every picture is transparent.
struct CPanelImage
{
    int Width = 0;
    int Height = 0;
    QList<CPanelImageItem> Items;

    void Reset(int width, int height)
    {
        Width = width;
        Height = height;
        Items.clear();
    }
    void Add(int bitmapId, const QString& name, const QString& port, const QString& comment)
    {
        Items.append({bitmapId, name, port, comment});
    }
};
