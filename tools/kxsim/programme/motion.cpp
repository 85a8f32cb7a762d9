#include "kxsim/programme/motion.h"

#include "registers/register_types.h"

#include <algorithm>
#include <cmath>

namespace kxsim
{

namespace
{

const int STEP_MILLISECONDS = 100;
const int TOGGLE_STEPS = 10;
const int WAVE_STEPS = 200;
const double WAVE_MIDDLE = 2047.5;
const double TWO_PI = 6.283185307179586;
const int TIMER_LIMIT = 50;
const int TIMER_STEPS = 60;
const quint32 COUNTER_START = 65000;
const quint32 COUNTER_STEP = 7;

const RegisterType* type(const char* name)
{
    return findRegisterType(QString::fromLatin1(name));
}

} // namespace

Motion::Motion(ControllerMemory* memory) : m_memory(memory)
{
    // A loaded value goes on.
    if (m_memory->value(type("32CV"), 200) == 0)
        m_memory->move(type("32CV"), 200, COUNTER_START);
    showPhases();
}

void Motion::advanceTo(qint64 milliseconds)
{
    while ((m_steps + 1) * STEP_MILLISECONDS <= milliseconds)
        step();
}

// The counters go on from what a host may have written into them.
void Motion::step()
{
    ++m_steps;
    m_memory->move(type("D"), 0, m_memory->value(type("D"), 0) + 1);
    m_memory->move(type("32CV"), 200, m_memory->value(type("32CV"), 200) + COUNTER_STEP);
    showPhases();
}

void Motion::showPhases()
{
    const double angle = TWO_PI * static_cast<double>(m_steps % WAVE_STEPS) / WAVE_STEPS;
    const double wave = WAVE_MIDDLE + WAVE_MIDDLE * std::sin(angle);
    m_memory->move(type("D"), 1, static_cast<quint32>(std::lround(wave)));

    const bool isOddSecond = m_steps / TOGGLE_STEPS % 2 == 1;
    m_memory->move(type("M"), 0, isOddSecond);
    m_memory->move(type("Y"), 0, !isOddSecond);

    const int timer = static_cast<int>(m_steps % TIMER_STEPS);
    m_memory->move(type("TV"), 0, static_cast<quint32>(std::min(timer, TIMER_LIMIT)));
    m_memory->move(type("T"), 0, timer >= TIMER_LIMIT);
}

} // namespace kxsim
