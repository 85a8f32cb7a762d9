#include "panel/recipe/recipe_file.h"
#include "panel/recipe/recipe_layout.h"
#include "registers/register_types.h"
#include "support/panel.h"
#include "support/require.h"
#include "tool_texts/texts.h"

#include <map>
#include <tuple>

using namespace kx;

namespace
{

const int LINK = 1;
// Few bytes become a header by chance.
const char* const HEADERS[] = {"",
                               "value;type;address;register;station;name\n",
                               "register\taddress\ttype\tvalue\n",
                               "name,station,register,address,type,value\n",
                               "value,address,format,order,scale,offset,decimals,min,max\n",
                               "address;format;value\n",
                               "name,value\n",
                               "name,station,register,address,type,value\n"};
const char* const TAGS = "name,station,address,format,scale,offset,min,max\n"
                         "a,,D100,s16,0.1,5,0,16\nb,2,D100,double,,,,\nc,,Y17,,,,,\n";

/// Station, type and address of a value that travels, and the value.
typedef std::map<std::tuple<int, QString, int>, quint32> Values;

Values valuesOf(const QList<RecipeRow>& rows)
{
    Values values;
    for (const RecipeRow& row : rows) {
        for (int i = 0; row.hasValue && i < row.range.values; ++i)
            values[std::make_tuple(row.range.station, QString::fromLatin1(row.range.type->name),
                                   row.range.address + i)] = static_cast<quint32>(row.value.at(i));
    }
    return values;
}

quint32 valueIn(const VARIABLE& job, int size, int index)
{
    quint32 value = 0;
    for (int byte = size - 1; byte >= 0; --byte)
        value = value << 8 | job.data[index * size + byte];
    return value;
}

// What the driver would send of a block.
void addValuesOf(const _RCP_VAR_PRO& block, Values* values)
{
    VARIABLE job = VARIABLE();
    rcpAddrToVar(block, job, 1);
    const RegisterType* const type = findRegisterType(block.regType);
    const bool isBit = type->registerClass == BIT_CLASS;
    const int perValue = registersPerAddress(type);
    require(!isBit || block.count % 8 != 0, "no write of coils is a multiple of 8 long");
    for (int i = 0; i < block.count / perValue; ++i)
        (*values)[std::make_tuple(block.station, block.regType, block.address + i)] =
            valueIn(job, isBit ? 1 : 2 * perValue, i);
}

// However the rows are laid out, the driver sends each row's value to its address.
void checkLayout(const QList<RecipeRow>& rows, int maxWords)
{
    RecipeLayout layout;
    QString error;
    if (!layOutRecipe(rows, maxWords, &layout, &error)) {
        require(!error.isEmpty(), "a refusal says why");
        return;
    }
    Panel panel("1#0#0#3#32");
    driver.linkId = LINK;
    driver.maxWords = maxWords;
    driver.recipeBuffer = layout.buffer.data();
    Values sent;
    for (const RecipePass& pass : layout.passes) {
        QVector<_RCP_VAR_PRO> variables = pass.forLink(LINK);
        intf_setRcpAddress(variables);
        require(driver.rcpVars.size() == pass.blocks,
                "the driver makes the blocks that were planned");
        for (const _RCP_VAR_PRO& block : driver.rcpVars)
            addValuesOf(block, &sent);
    }
    for (const auto& value : valuesOf(rows)) {
        const auto found = sent.find(value.first);
        require(found != sent.end() && found->second == value.second,
                "each value is sent to its address");
    }
}

void checkRewriting(const RecipeFile& file, const QByteArray& text, const RecipeDefaults& defaults,
                    qint64 change)
{
    QList<QList<qint64>> values;
    bool isComplete = true;
    for (const RecipeRow& row : file.rows()) {
        checkRange(row.range);
        require(!row.hasValue || row.value.size() == row.range.values,
                "a value has a number for each address");
        values << row.value;
        isComplete = isComplete && row.hasValue;
    }
    require(!isComplete || file.withValues(values) == text, "the same values keep the text");

    for (int i = 0; i < values.size(); ++i) {
        const RecipeRow& row = file.rows().at(i);
        QList<qint64> changed;
        for (int word = 0; word < row.range.values; ++word)
            changed << ((row.value.value(word) ^ change) & highestValue(row.range.type));
        values[i] = changed;
    }
    RecipeFile again;
    QString error;
    require(RecipeFile::parse(file.withValues(values), defaults, &again, &error),
            "a recipe with new values is a recipe");
    require(again.rows().size() == values.size(), "no row is lost");
    for (int i = 0; i < values.size(); ++i)
        require(again.rows().at(i).value == values.at(i) && again.rows().at(i).hasValue,
                "the new values are read back");
}

} // namespace

void readRecipe(InputReader* input)
{
    const int maxWords = 1 + input->byte() % 123;
    const qint64 change = input->word();
    const QByteArray header = HEADERS[input->below(8)];
    const QByteArray text = header + input->rest();
    RecipeFile file;
    RecipeDefaults defaults;
    QString fault;
    require(parseTags(TAGS, "tags.csv", &defaults.tags, &fault), "the tags are right");
    const auto parse = [&](const QByteArray& content, QString* error) {
        return RecipeFile::parse(content, defaults, &file, error);
    };
    if (!takes(parse, text))
        return;
    checkRewriting(file, text, defaults, change);
    checkLayout(file.rows(), maxWords);
    takes(
        [&](const QByteArray& content, QString* error) {
            RecipeLayout layout;
            return !RecipeFile::parse(content, defaults, &file, error)
                   || (canBeDownloaded(file.rows(), error)
                       && layOutRecipe(file.rows(), maxWords, &layout, error));
        },
        text);
}
