#include "panel/recipe/recipe_layout_builder.h"

#include "addresses/write_pieces.h"
#include "registers/register_types.h"

namespace kx
{

namespace
{

const int COIL_BITS = 8; // that a coil takes in the recipe buffer
const int COILS_PER_WORD = WORD_BITS / COIL_BITS;
const quint32 BUFFER_WORD_MASK = 0xFFFF;
const int NOT_IN_BUFFER = -1;

QString typeName(const RegisterType* type)
{
    return QString::fromLatin1(type->name);
}

_RCP_VAR_PRO variableOf(const AddressRange& range, int offset)
{
    _RCP_VAR_PRO variable = _RCP_VAR_PRO();
    variable.station = range.station;
    variable.regType = typeName(range.type);
    variable.address = range.address;
    variable.count = range.driverCount();
    variable.bufOffset = offset;
    return variable;
}

} // namespace

bool driverJoins(const AddressRange& previous, const AddressRange& next, int maxWords)
{
    if (previous.station != next.station || previous.type != next.type
        || next.address > previous.address + previous.driverCount()
        || liesPastSplit(next.type, previous.address, next.address))
        return false;
    const int distance = (next.address - previous.address) * registersPerAddress(next.type);
    return distance + next.driverCount() <= maxWords;
}

int RecipeLayoutBuilder::takeWords(int words)
{
    const size_t offset = m_layout->buffer.size();
    m_layout->buffer.resize(offset + static_cast<size_t>(words), 0);
    return static_cast<int>(offset);
}

quint32 RecipeLayoutBuilder::valueAt(const AddressRange& range, int index) const
{
    return m_cells.at(recipeCellKey(range, index)).value;
}

int RecipeLayoutBuilder::offsetOf(const AddressRange& range) const
{
    const auto found = m_cellOffsets.find(recipeCellKey(range, 0));
    return found == m_cellOffsets.end() ? NOT_IN_BUFFER : found->second;
}

RecipePass& RecipeLayoutBuilder::registerPass(int station)
{
    const int next = static_cast<int>(m_layout->passes.size());
    const auto inserted = m_registerPasses.insert({station, next});
    if (inserted.second)
        m_layout->passes.append(RecipePass());
    return m_layout->passes[inserted.first->second];
}

int RecipeLayoutBuilder::restOfPiece(const AddressRange& run, int index) const
{
    int end = index + 1;
    while (end < run.values && m_cells.at(recipeCellKey(run, end)).followsInValue)
        ++end;
    return end - index;
}

// As the driver joins them.
int RecipeLayoutBuilder::blocksOf(const AddressRange& run) const
{
    int blocks = 0;
    int begin = 0; // of the block
    for (int i = 0, words = 0; i < run.values; i += words) {
        words = restOfPiece(run, i);
        const bool isJoined = blocks > 0 && i + words - begin <= m_maxWords
                              && !liesPastSplit(run.type, run.address + begin, run.address + i);
        begin = isJoined ? begin : i;
        blocks += isJoined ? 0 : 1;
    }
    return blocks;
}

void RecipeLayoutBuilder::addRegisters(const AddressRange& run)
{
    RecipePass& pass = registerPass(run.station);
    const int offset = takeWords(run.values);
    for (int i = 0; i < run.values; ++i) {
        const AddressRange rest = {run.type, run.address + i, restOfPiece(run, i), run.station};
        pass.variables.append(variableOf(rest, offset + i));
        m_layout->buffer[static_cast<size_t>(offset) + static_cast<size_t>(i)] =
            static_cast<unsigned short>(valueAt(run, i));
        m_cellOffsets[recipeCellKey(run, i)] = offset + i;
    }
    pass.blocks += blocksOf(run);
}

RecipePass& RecipeLayoutBuilder::passFor(const AddressRange& piece)
{
    for (auto& last : m_lastOfPass) {
        if (driverJoins(last.second, piece, m_maxWords))
            continue;
        last.second = piece;
        return m_layout->passes[last.first];
    }
    m_lastOfPass[static_cast<int>(m_layout->passes.size())] = piece;
    m_layout->passes.append(RecipePass());
    return m_layout->passes.last();
}

// The driver copies a word per coil, although it sends two coils of each, that in the
// low byte first.
void RecipeLayoutBuilder::addPieces(const AddressRange& run)
{
    const bool isBits = run.type->registerClass == BIT_CLASS;
    const int most = isBits ? m_maxWords : addressesPerWrite(run.type, m_maxWords);
    for (const AddressRange& piece : writePieces(run, most)) {
        const int offset = takeWords(piece.driverCount());
        RecipePass& pass = passFor(piece);
        pass.variables.append(variableOf(piece, offset));
        ++pass.blocks;
        if (isBits)
            storeCoils(piece, offset);
        else
            storeDoubleWords(piece, offset);
    }
}

void RecipeLayoutBuilder::storeCoils(const AddressRange& piece, int offset)
{
    for (int i = 0; i < piece.values; ++i) {
        const int at = offset + i / COILS_PER_WORD;
        unsigned short& word = m_layout->buffer[static_cast<size_t>(at)];
        const int shift = i % COILS_PER_WORD * COIL_BITS;
        word = static_cast<unsigned short>(word | valueAt(piece, i) << shift);
    }
}

void RecipeLayoutBuilder::storeDoubleWords(const AddressRange& piece, int offset)
{
    for (int i = 0; i < piece.values; ++i) {
        const int low = offset + 2 * i;
        const quint32 value = valueAt(piece, i);
        m_layout->buffer[static_cast<size_t>(low)] =
            static_cast<unsigned short>(value & BUFFER_WORD_MASK);
        m_layout->buffer[static_cast<size_t>(low) + 1] =
            static_cast<unsigned short>(value >> WORD_BITS);
        m_cellOffsets[recipeCellKey(piece, i)] = low;
    }
}

// The driver makes two blocks of a single variable, but one of a variable given twice.
void RecipeLayoutBuilder::doubleLoneVariables()
{
    for (RecipePass& pass : m_layout->passes) {
        if (pass.variables.size() == 1)
            pass.variables.append(pass.variables.constFirst());
    }
}

} // namespace kx
