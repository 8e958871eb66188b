#include "avrsimulator.h"

#include "hd44780.h"

#include <avr_adc.h>
#include <avr_extint.h>
#include <avr_ioport.h>
#include <avr_uart.h>
#include <sim_avr.h>
#include <sim_hex.h>

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <deque>
#include <filesystem>
#include <map>
#include <mutex>

namespace {

// A port of the processor as simavr describes it: the registers are found there, not
// written down here.
struct CPortIo
{
    char Name = 0;
    const avr_ioport_t* Io = nullptr;
};

template <class T> T* FindIo(avr_t* avr, const char* kind, char name)
{
    for (avr_io_t* io = avr->io_port; io; io = io->next)
        if (io->kind && std::strcmp(io->kind, kind) == 0 && reinterpret_cast<T*>(io)->name == name)
            return reinterpret_cast<T*>(io);
    return nullptr;
}

} // namespace

class CAvrSimulator::CImpl
{
  public:
    enum class EInput
    {
        Floating,
        Low,
        High
    };

    struct CPinHook
    {
        CImpl* Impl;
        int Pin;
    };

    explicit CImpl(CSimTarget target)
        : m_target(std::move(target)), m_traces(m_target.Pins.size()),
          m_inputs(m_target.Pins.size(), EInput::Floating), m_pinHooks(m_target.Pins.size()),
          m_pinIrq(m_target.Pins.size())
    {
        for (const CSimTarget::CPin& pin : m_target.Pins)
            if (std::none_of(m_ports.begin(), m_ports.end(),
                             [&](const CPortIo& port) { return port.Name == pin.Port; }))
                m_ports.push_back({pin.Port, nullptr});
    }
    ~CImpl() { Close(); }

    bool ValidPin(int pin) const { return pin >= 0 && pin < m_target.PinCount(); }
    const CPortIo& PortOf(int pin) const
    {
        return *std::find_if(m_ports.begin(), m_ports.end(), [&](const CPortIo& port) {
            return port.Name == m_target.Pins[pin].Port;
        });
    }

    void Close()
    {
        if (!m_avr)
            return;
        Registry(m_avr, nullptr, false);
        avr_terminate(m_avr);
        std::free(m_avr);
        m_avr = nullptr;
        m_running = false;
    }

    bool Load(const std::string& hexPath);
    bool Run(std::uint64_t cycles);

    bool IsOutput(int pin) const
    {
        return m_avr->data[PortOf(pin).Io->r_ddr] & (1 << m_target.Pins[pin].Bit);
    }

    // A program that cannot be loaded leaves no core behind: nothing reads a half-made one.
    bool Refuse(const std::string& text)
    {
        Fail(text);
        Close();
        return false;
    }

    bool Fail(const std::string& text)
    {
        m_error = text;
        if (!m_log.empty())
            m_error += " (" + m_log + ")";
        m_running = false;
        return false;
    }

    // Driven inputs are the port's external state, which the core prefers to the pull-up
    // whenever the firmware writes PORT or DDR: a driven pin never glitches to its pull-up.
    // A floating pin gets the pull-up's level now, and the core's own pull-up later.
    void ApplyInputs(char port)
    {
        avr_ioport_external_t external{};
        external.name = port;
        for (int pin = 0; pin < m_target.PinCount(); ++pin) {
            const CSimTarget::CPin& place = m_target.Pins[pin];
            if (place.Port == port && m_inputs[pin] != EInput::Floating) {
                external.mask |= 1u << place.Bit;
                if (m_inputs[pin] == EInput::High)
                    external.value |= 1u << place.Bit;
            }
        }
        avr_ioctl(m_avr, AVR_IOCTL_IOPORT_SET_EXTERNAL(port), &external);
        for (int pin = 0; pin < m_target.PinCount(); ++pin) {
            const CSimTarget::CPin& place = m_target.Pins[pin];
            if (place.Port != port || IsOutput(pin))
                continue;
            bool high = m_inputs[pin] == EInput::High;
            if (m_inputs[pin] == EInput::Floating)
                high = m_avr->data[PortOf(pin).Io->r_port] & (1 << place.Bit);
            avr_raise_irq(m_pinIrq[pin], high ? 1 : 0);
        }
    }

    void OnPin(int pin, std::uint32_t value)
    {
        if (!IsOutput(pin))
            return;
        const bool high = value & 1;
        const bool wasHigh = m_traces[pin].Level();
        m_traces[pin].Record(m_avr->cycle, high);
        if (IsSegmentPin(pin))
            ShowSegments();
        if (pin == m_target.LcdE && wasHigh && !high) {
            std::uint8_t nibble = 0;
            for (int bit = 0; bit < 4; ++bit)
                nibble |= std::uint8_t(Trace(m_target.LcdData[bit]).Level() << bit);
            m_lcd.Strobe(Trace(m_target.LcdRs).Level(), nibble);
        }
    }

    bool IsSegmentPin(int pin) const
    {
        return std::find(std::begin(m_target.SegmentPins), std::end(m_target.SegmentPins), pin) !=
                   std::end(m_target.SegmentPins) ||
               std::find(m_target.DigitPins.begin(), m_target.DigitPins.end(), pin) !=
                   m_target.DigitPins.end();
    }

    std::uint8_t SegmentsNow() const
    {
        std::uint8_t pattern = 0;
        for (int segment = 0; segment < 8; ++segment)
            pattern |= std::uint8_t(Trace(m_target.SegmentPins[segment]).Level() << segment);
        return pattern;
    }

    // A multiplexed display shows one digit at a time: the digit that alone is selected
    // takes the segments now.
    void ShowSegments()
    {
        int selected = -1;
        for (int digit = 0; digit < int(m_target.DigitPins.size()); ++digit)
            if (Trace(m_target.DigitPins[std::size_t(digit)]).Level() == m_target.DigitSelectHigh)
                selected = selected == -1 ? digit : -2;
        if (selected >= 0)
            m_digits[std::size_t(selected)] = SegmentsNow();
    }

    const CPinTrace& Trace(int pin) const
    {
        static const CPinTrace none;
        return ValidPin(pin) ? m_traces[pin] : none;
    }

    // Ten bits at the speed the program set, or at the target's when it has set none.
    avr_cycle_count_t UartFrameCycles() const
    {
        const unsigned ubrr = m_uart ? unsigned(avr_regbit_get(m_avr, m_uart->ubrrl)) |
                                           unsigned(avr_regbit_get(m_avr, m_uart->ubrrh)) << 8
                                     : 0;
        if (ubrr == 0)
            return m_target.ClockHz * 10 / std::uint64_t(std::max(1, m_target.Baud));
        const unsigned divisor = avr_regbit_get(m_avr, m_uart->u2x) ? 8 : 16;
        return 10ull * divisor * (ubrr + 1);
    }

    void ArmUart()
    {
        if (m_uartArmed || m_uartQueue.empty() || !m_avr || !m_uart)
            return;
        m_uartArmed = true;
        avr_cycle_timer_register(m_avr, UartFrameCycles(), &CImpl::UartFrame, this);
    }

    static avr_cycle_count_t UartFrame(avr_t* avr, avr_cycle_count_t when, void* param)
    {
        auto* self = static_cast<CImpl*>(param);
        // A byte sent while the receiver is off would be lost; it waits for the next frame.
        if (!self->m_uartQueue.empty() && avr_regbit_get(avr, self->m_uart->rxen)) {
            avr_raise_irq(self->m_uartIn, self->m_uartQueue.front());
            self->m_uartQueue.pop_front();
        }
        if (self->m_uartQueue.empty()) {
            self->m_uartArmed = false;
            return 0;
        }
        return when + self->UartFrameCycles();
    }

    static avr_cycle_count_t Wake(avr_t*, avr_cycle_count_t, void*) { return 0; }

    static void Logger(avr_t* avr, const int level, const char* format, va_list args)
    {
        if (level > LOG_ERROR)
            return;
        char text[512];
        std::vsnprintf(text, sizeof text, format, args);
        // Colour escapes and line ends are dropped: the text ends up in a test's message.
        std::string line;
        for (const char* c = text; *c; ++c) {
            if (*c == '\x1b') {
                while (*c && *c != 'm')
                    ++c;
                if (!*c)
                    break;
            } else if (*c != '\n' && *c != '\r') {
                line.push_back(*c);
            }
        }
        if (CImpl* self = Registry(avr, nullptr, true))
            self->m_log += (self->m_log.empty() ? "" : "; ") + line;
    }

    // The core's log calls name only the core; this finds its simulator. A null
    // simulator removes the core.
    static CImpl* Registry(const avr_t* avr, CImpl* set, bool lookup);

    const CSimTarget m_target;
    avr_t* m_avr = nullptr;
    bool m_running = false;
    std::string m_error;
    std::string m_log;
    std::vector<CPortIo> m_ports;
    std::vector<CPinTrace> m_traces;
    std::vector<EInput> m_inputs;
    std::vector<CPinHook> m_pinHooks;
    std::vector<avr_irq_t*> m_pinIrq;
    std::array<avr_irq_t*, AnalogChannels> m_adcIrq{};
    avr_uart_t* m_uart = nullptr;
    avr_irq_t* m_uartIn = nullptr;
    std::deque<std::uint8_t> m_uartQueue;
    bool m_uartArmed = false;
    std::string m_uartOut;
    CHd44780 m_lcd;
    std::array<std::uint8_t, 8> m_digits{};
};

CAvrSimulator::CImpl* CAvrSimulator::CImpl::Registry(const avr_t* avr, CImpl* set, bool lookup)
{
    static std::mutex lock;
    static std::map<const avr_t*, CImpl*> simulators;
    const std::lock_guard<std::mutex> guard(lock);
    if (lookup) {
        const auto found = simulators.find(avr);
        return found == simulators.end() ? nullptr : found->second;
    }
    if (set)
        simulators[avr] = set;
    else
        simulators.erase(avr);
    return nullptr;
}

bool CAvrSimulator::CImpl::Load(const std::string& hexPath)
{
    Close();
    m_error.clear();
    m_log.clear();
    m_traces.assign(m_target.Pins.size(), CPinTrace());
    m_inputs.assign(m_target.Pins.size(), EInput::Floating);
    m_uartQueue.clear();
    m_uartArmed = false;
    m_uartOut.clear();
    m_lcd = CHd44780();
    m_digits = {};

    std::error_code ignored;
    if (!std::filesystem::is_regular_file(hexPath, ignored))
        return Fail("no HEX file \"" + hexPath + "\"");
    ihex_chunk_p chunks = nullptr;
    const int count = read_ihex_chunks(hexPath.c_str(), &chunks);
    if (count <= 0) {
        free_ihex_chunks(chunks);
        return Fail("\"" + hexPath + "\" does not read as Intel HEX");
    }

    static std::once_flag logger;
    std::call_once(logger, [] { avr_global_logger_set(&CImpl::Logger); });
    m_avr = m_target.Mcu.empty() ? nullptr : avr_make_mcu_by_name(m_target.Mcu.c_str());
    if (!m_avr || m_target.ClockHz == 0) {
        free_ihex_chunks(chunks);
        return Refuse("the simulator knows no processor \"" + m_target.Mcu + "\" at " +
                      std::to_string(m_target.ClockHz) + " Hz");
    }
    Registry(m_avr, this, false);
    avr_init(m_avr);
    m_avr->frequency = std::uint32_t(m_target.ClockHz);
    m_avr->vcc = m_avr->avcc = m_avr->aref = std::uint32_t(m_target.AnalogReferenceMv);
    // Simulated time only: a sleeping core must not sleep the test too.
    m_avr->sleep = [](avr_t*, avr_cycle_count_t) {};
    m_avr->log = LOG_ERROR;

    bool fits = true;
    for (int i = 0; i < count; ++i) {
        // The core aborts on code that does not fit, so it is refused here.
        if (std::uint64_t(chunks[i].baseaddr) + chunks[i].size >
            std::uint64_t(m_avr->flashend) + 1) {
            fits = false;
            break;
        }
        avr_loadcode(m_avr, chunks[i].data, chunks[i].size, chunks[i].baseaddr);
    }
    free_ihex_chunks(chunks);
    if (!fits)
        return Refuse("\"" + hexPath + "\" does not fit into the FLASH");
    // simavr checks a level-triggered external interrupt on every cycle while its pin is low,
    // enabled or not, which slowed a whole run threefold; in its lenient mode the level is
    // acted on when it changes, as an interrupt the program enables still sees it.
    for (int extint = 0; extint < 8; ++extint)
        avr_extint_set_strict_lvl_trig(m_avr, std::uint8_t(extint), 0);
    m_avr->codeend = m_avr->flashend;
    m_avr->pc = 0;

    for (CPortIo& port : m_ports)
        if (!(port.Io = FindIo<avr_ioport_t>(m_avr, "port", port.Name)))
            return Refuse(std::string("the processor has no port ") + port.Name);
    for (int pin = 0; pin < m_target.PinCount(); ++pin) {
        const CSimTarget::CPin& place = m_target.Pins[pin];
        m_pinHooks[pin] = {this, pin};
        m_pinIrq[pin] = avr_io_getirq(m_avr, AVR_IOCTL_IOPORT_GETIRQ(place.Port), place.Bit);
        avr_irq_register_notify(
            m_pinIrq[pin],
            [](avr_irq_t*, std::uint32_t value, void* param) {
                auto* hook = static_cast<CPinHook*>(param);
                hook->Impl->OnPin(hook->Pin, value);
            },
            &m_pinHooks[pin]);
    }
    if (const char uart = m_target.Uart) {
        if (!(m_uart = FindIo<avr_uart_t>(m_avr, "uart", uart)))
            return Refuse(std::string("the processor has no UART ") + uart);
        // No console echo and no real-time pause while the firmware polls its status.
        std::uint32_t flags = 0;
        avr_ioctl(m_avr, AVR_IOCTL_UART_GET_FLAGS(uart), &flags);
        flags &= ~std::uint32_t(AVR_UART_FLAG_STDIO | AVR_UART_FLAG_POLL_SLEEP);
        avr_ioctl(m_avr, AVR_IOCTL_UART_SET_FLAGS(uart), &flags);
        m_uartIn = avr_io_getirq(m_avr, AVR_IOCTL_UART_GETIRQ(uart), UART_IRQ_INPUT);
        avr_irq_register_notify(
            avr_io_getirq(m_avr, AVR_IOCTL_UART_GETIRQ(uart), UART_IRQ_OUTPUT),
            [](avr_irq_t*, std::uint32_t value, void* param) {
                static_cast<CImpl*>(param)->m_uartOut.push_back(char(value & 0xff));
            },
            this);
    }

    for (int channel = 0; channel < AnalogChannels; ++channel)
        m_adcIrq[channel] = avr_io_getirq(m_avr, AVR_IOCTL_ADC_GETIRQ, ADC_IRQ_ADC0 + channel);

    for (const CPortIo& port : m_ports)
        ApplyInputs(port.Name);
    m_running = true;
    return true;
}

bool CAvrSimulator::CImpl::Run(std::uint64_t cycles)
{
    if (!m_running)
        return false;
    if (cycles == 0)
        return true;
    const avr_cycle_count_t target = m_avr->cycle + cycles;
    // A sleeping core jumps to its next timer; this one keeps it from jumping past the end.
    avr_cycle_timer_register(m_avr, cycles, &CImpl::Wake, this);
    while (m_avr->cycle < target) {
        const int state = avr_run(m_avr);
        if (state == cpu_Done || state == cpu_Crashed || state == cpu_Stopped) {
            avr_cycle_timer_cancel(m_avr, &CImpl::Wake, this);
            char where[96];
            std::snprintf(where, sizeof where, " at cycle %llu, PC 0x%04x",
                          static_cast<unsigned long long>(m_avr->cycle), unsigned(m_avr->pc));
            return Fail(std::string(state == cpu_Done ? "the core stopped" : "the core crashed") +
                        where);
        }
    }
    avr_cycle_timer_cancel(m_avr, &CImpl::Wake, this);
    return true;
}

CAvrSimulator::CAvrSimulator(CSimTarget target) : m_impl(std::make_unique<CImpl>(std::move(target)))
{
    m_impl->m_error = "no program loaded";
}

const CSimTarget& CAvrSimulator::Target() const
{
    return m_impl->m_target;
}

CAvrSimulator::~CAvrSimulator() = default;

bool CAvrSimulator::Load(const std::string& hexPath)
{
    return m_impl->Load(hexPath);
}

const std::string& CAvrSimulator::Error() const
{
    return m_impl->m_error;
}

bool CAvrSimulator::IsRunning() const
{
    return m_impl->m_running;
}

bool CAvrSimulator::RunCycles(std::uint64_t cycles)
{
    return m_impl->Run(cycles);
}

bool CAvrSimulator::RunUntil(const std::function<bool()>& done, double limitMs)
{
    const std::uint64_t end = Cycle() + Ms(limitMs);
    while (!done()) {
        if (Cycle() >= end || !RunCycles(std::min(Us(100), end - Cycle())))
            return false;
    }
    return true;
}

std::uint64_t CAvrSimulator::Cycle() const
{
    return m_impl->m_avr ? m_impl->m_avr->cycle : 0;
}

double CAvrSimulator::NowMs() const
{
    return double(Cycle()) * 1000.0 / double(Target().ClockHz);
}

void CAvrSimulator::SetInput(int pin, bool high)
{
    if (!m_impl->ValidPin(pin))
        return;
    m_impl->m_inputs[pin] = high ? CImpl::EInput::High : CImpl::EInput::Low;
    if (m_impl->m_avr)
        m_impl->ApplyInputs(Target().Pins[pin].Port);
}

void CAvrSimulator::FloatInput(int pin)
{
    if (!m_impl->ValidPin(pin))
        return;
    m_impl->m_inputs[pin] = CImpl::EInput::Floating;
    if (m_impl->m_avr)
        m_impl->ApplyInputs(Target().Pins[pin].Port);
}

bool CAvrSimulator::Level(int pin) const
{
    if (!m_impl->ValidPin(pin) || !m_impl->m_avr)
        return false;
    if (m_impl->IsOutput(pin))
        return m_impl->m_traces[pin].Level();
    return m_impl->m_avr->data[m_impl->PortOf(pin).Io->r_pin] & (1 << Target().Pins[pin].Bit);
}

const CPinTrace& CAvrSimulator::Trace(int pin) const
{
    return m_impl->Trace(pin);
}

void CAvrSimulator::ForgetBefore(std::uint64_t cycle)
{
    for (CPinTrace& trace : m_impl->m_traces)
        trace.ForgetBefore(cycle);
}

std::int64_t CAvrSimulator::LastChange(int pin) const
{
    const std::optional<std::uint64_t> last = Trace(pin).LastChange();
    return last ? std::int64_t(*last) : -1;
}

int CAvrSimulator::Pulses(int pin, double fromMs, double toMs) const
{
    return Trace(pin).Pulses(Ms(fromMs), Ms(toMs));
}

double CAvrSimulator::Duty(int pin, double fromMs, double toMs) const
{
    return Trace(pin).Duty(Ms(fromMs), Ms(toMs));
}

double CAvrSimulator::Frequency(int pin, double fromMs, double toMs) const
{
    return Trace(pin).Frequency(Ms(fromMs), Ms(toMs), double(Target().ClockHz));
}

void CAvrSimulator::SendUart(const std::string& bytes)
{
    m_impl->m_uartQueue.insert(m_impl->m_uartQueue.end(), bytes.begin(), bytes.end());
    m_impl->ArmUart();
}

const std::string& CAvrSimulator::UartOutput() const
{
    return m_impl->m_uartOut;
}

void CAvrSimulator::ClearUartOutput()
{
    m_impl->m_uartOut.clear();
}

void CAvrSimulator::SetAnalogMillivolts(int channel, int millivolts)
{
    if (channel < 0 || channel >= AnalogChannels || !m_impl->m_avr)
        return;
    avr_raise_irq(m_impl->m_adcIrq[channel],
                  std::uint32_t(std::clamp(millivolts, 0, Target().AnalogReferenceMv)));
}

void CAvrSimulator::SetAnalogReading(int channel, int reading)
{
    reading = std::clamp(reading, 0, 1023);
    // The core converts as reading = mV * 1023 / reference; the smallest voltage that
    // gives the reading is taken, rounded up.
    SetAnalogMillivolts(channel, (reading * Target().AnalogReferenceMv + 1022) / 1023);
}

std::uint8_t CAvrSimulator::Segments() const
{
    return m_impl->SegmentsNow();
}

std::uint8_t CAvrSimulator::Digit(int digit) const
{
    return digit >= 0 && digit < 8 ? m_impl->m_digits[std::size_t(digit)] : 0;
}

std::string CAvrSimulator::LcdLine(int line) const
{
    return m_impl->m_lcd.Line(line);
}

void CAvrSimulator::SetResetAddress(std::uint32_t address)
{
    if (!m_impl->m_avr)
        return;
    m_impl->m_avr->reset_pc = address;
    m_impl->m_avr->pc = address;
}

void CAvrSimulator::ResetExternal()
{
    avr_t* avr = m_impl->m_avr;
    if (!avr)
        return;
    // A reset keeps the FLASH; the program starts again at the reset address and reads in
    // its reset flags that the reset pin, nothing else, caused it.
    avr_reset(avr);
    avr->pc = avr->reset_pc;
    avr->data[R_SPL] = std::uint8_t(avr->ramend);
    avr->data[R_SPH] = std::uint8_t(avr->ramend >> 8);
    avr_regbit_clear(avr, avr->reset_flags.porf);
    avr_regbit_clear(avr, avr->reset_flags.borf);
    avr_regbit_clear(avr, avr->reset_flags.wdrf);
    avr_regbit_set(avr, avr->reset_flags.extrf);
    m_impl->m_running = true;
    // The reset dropped the core's timers, the serial line's among them.
    m_impl->m_uartQueue.clear();
    m_impl->m_uartArmed = false;
    for (const CPortIo& port : m_impl->m_ports)
        m_impl->ApplyInputs(port.Name);
}

std::uint32_t CAvrSimulator::ReadRam(std::uint32_t address, int bytes) const
{
    const avr_t* avr = m_impl->m_avr;
    std::uint32_t value = 0;
    for (int i = std::clamp(bytes, 0, 4) - 1; avr && i >= 0; --i)
        value = value << 8 | (address + i <= avr->ramend ? avr->data[address + i] : 0);
    return value;
}
