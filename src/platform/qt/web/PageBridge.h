#pragma once

#include <QObject>
#include <QString>
#include <QVariantList>

#include <functional>

namespace paperkite {

/// What the script in the page may call. Every call brings the number of the load that its page
/// came from; calls of an earlier page are dropped.
class PageBridge : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// The load whose page may speak.
    int Generation = 0;

    std::function<void()> Ready;
    std::function<void(int place, double number, const QString& html)> Typed;
    std::function<void(bool canUndo)> Touched;
    std::function<void(const QString& json)> Element;
    std::function<void(const QString& json)> Selection;
    std::function<void(const QString& href)> Link;
    std::function<void(const QString& json)> Menu;
    std::function<void(const QString& name)> Command;
    std::function<void()> Picture;
    std::function<void(const QString& layout, const QString& html)> Copied;
    std::function<void(const QString& layout, const QString& html)> Pasted;
    std::function<QVariantList(const QString& text)> Misspelt;

public slots:
    void ready(int generation);
    void typed(int generation, int place, double number, const QString& html);
    void touched(int generation, bool canUndo);
    void element(int generation, const QString& json);
    void selection(int generation, const QString& json);
    void link(int generation, const QString& href);
    void menu(int generation, const QString& json);
    void command(int generation, const QString& name);
    void picture(int generation);
    void copied(int generation, const QString& layout, const QString& html);
    void pasted(int generation, const QString& layout, const QString& html);
    /// Start and length of each word, one behind the other.
    QVariantList misspelt(int generation, const QString& text);

private:
    /// What the author asks for may ask the page in turn, which answers nothing while it waits for
    /// the end of its own call.
    void Later(int generation, const std::function<void()>& action);
};

} // namespace paperkite
