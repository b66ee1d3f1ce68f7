#include "svg/FontCheck.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <memory>

namespace shapedocument::drawing {

namespace {

const QString kDefaultFamily = "Times New Roman"; ///< the renderer's

struct Destroy
{
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, Destroy>;

QStringList FamiliesOf(const QString& list)
{
    QStringList families;
    for (QString family : list.split(u',')) {
        family = family.trimmed();
        if (family.size() > 1 && (family[0] == u'\'' || family[0] == u'"'))
            family = family.mid(1, family.size() - 2);
        if (!family.isEmpty())
            families << family;
    }
    return families;
}

bool IsGeneric(const QString& family)
{
    static const QStringList generic{"serif",   "sans-serif", "sans",    "monospace", "mono",  "cursive",
                                     "fantasy", "system-ui",  "inherit", "initial",   "unset", "normal"};
    return generic.contains(family.toLower());
}

/// The family that fontconfig chooses for these.
QString InUse(QStringList families)
{
    if (families.isEmpty())
        families << kDefaultFamily;
    const Pattern wanted(FcPatternCreate());
    for (const QString& family : families)
        FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family.toUtf8().constData()));
    FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result;
    const Pattern found(FcFontMatch(nullptr, wanted.get(), &result));
    FcChar8* name = nullptr;
    if (!found || FcPatternGetString(found.get(), FC_FAMILY, 0, &name) != FcResultMatch)
        return {};
    return QString::fromUtf8(reinterpret_cast<const char*>(name));
}

/// Whether a family is installed, under any of its names.
bool IsInstalled(const QString& family)
{
    const Pattern wanted(FcPatternCreate());
    FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family.toUtf8().constData()));
    const std::unique_ptr<FcObjectSet, decltype(&FcObjectSetDestroy)> objects(FcObjectSetBuild(FC_FAMILY, nullptr),
                                                                              FcObjectSetDestroy);
    const std::unique_ptr<FcFontSet, decltype(&FcFontSetDestroy)> fonts(
        FcFontList(nullptr, wanted.get(), objects.get()), FcFontSetDestroy);
    return fonts && fonts->nfont > 0;
}

} // namespace

QStringList FamiliesInUse(const QStringList& familyLists)
{
    QStringList used;
    for (const QString& list : familyLists)
        used << InUse(FamiliesOf(list));
    used.removeDuplicates();
    return used;
}

void AddReplacedFonts(const QSet<QString>& familyLists, DrawingReport& report)
{
    QStringList sorted(familyLists.begin(), familyLists.end());
    std::sort(sorted.begin(), sorted.end());
    for (const QString& list : sorted) {
        const QStringList families = FamiliesOf(list);
        const QString& wanted = families.isEmpty() ? kDefaultFamily : families[0];
        if (!IsGeneric(wanted) && !IsInstalled(wanted))
            report.AddReplacedFont(families.value(0), InUse(families));
    }
}

} // namespace shapedocument::drawing
