<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>kx</name>
    <message numerus="yes">
        <source>%1 values</source>
        <translation>
            <numerusform>%1 value</numerusform>
            <numerusform>%1 values</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 fields</source>
        <translation>
            <numerusform>%1 field</numerusform>
            <numerusform>%1 fields</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 registers</source>
        <translation>
            <numerusform>%1 register</numerusform>
            <numerusform>%1 registers</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 coils</source>
        <translation>
            <numerusform>%1 coil</numerusform>
            <numerusform>%1 coils</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::AddLine</name>
    <message numerus="yes">
        <source>%1, %n values</source>
        <translation>
            <numerusform>%1, %n value</numerusform>
            <numerusform>%1, %n values</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::CycleWords</name>
    <message numerus="yes">
        <source>%n byte(s) came</source>
        <translation>
            <numerusform>%n byte came</numerusform>
            <numerusform>%n bytes came</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::DownloadBar</name>
    <message numerus="yes">
        <source>Send %n value(s) to %1? They replace those in the controller.</source>
        <translation>
            <numerusform>Send %n value to %1? It replaces the one in the controller.</numerusform>
            <numerusform>Send %n values to %1? They replace those in the controller.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::ExchangeWords</name>
    <message numerus="yes">
        <source>%n byte(s)</source>
        <translation>
            <numerusform>%n byte</numerusform>
            <numerusform>%n bytes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::FilterLine</name>
    <message numerus="yes">
        <source>%n values</source>
        <translation>
            <numerusform>%n value</numerusform>
            <numerusform>%n values</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n values</source>
        <translation>
            <numerusform>%1 of %n value</numerusform>
            <numerusform>%1 of %n values</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::FrameDetails</name>
    <message numerus="yes">
        <source>Reply, over at %1, %n byte(s)</source>
        <translation>
            <numerusform>Reply, over at %1, %n byte</numerusform>
            <numerusform>Reply, over at %1, %n bytes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Request, sent %1, %n byte(s)</source>
        <translation>
            <numerusform>Request, sent %1, %n byte</numerusform>
            <numerusform>Request, sent %1, %n bytes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Before it came %n byte(s): %1</source>
        <translation>
            <numerusform>Before it came %n byte: %1</numerusform>
            <numerusform>Before it came %n bytes: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Behind it came %n byte(s): %1</source>
        <translation>
            <numerusform>Behind it came %n byte: %1</numerusform>
            <numerusform>Behind it came %n bytes: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Instead came %n byte(s): %1</source>
        <translation>
            <numerusform>Instead came %n byte: %1</numerusform>
            <numerusform>Instead came %n bytes: %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::FramesPage</name>
    <message numerus="yes">
        <source>%n exchange(s) saved in %1</source>
        <translation>
            <numerusform>%n exchange saved in %1</numerusform>
            <numerusform>%n exchanges saved in %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n exchanges shown</source>
        <translation>
            <numerusform>%1 of %n exchange shown</numerusform>
            <numerusform>%1 of %n exchanges shown</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::HealthWords</name>
    <message numerus="yes">
        <source>%n repl(ies) of other requests</source>
        <translation>
            <numerusform>%n reply of another request</numerusform>
            <numerusform>%n replies of other requests</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n late repl(ies)</source>
        <translation>
            <numerusform>%n late reply</numerusform>
            <numerusform>%n late replies</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n duplicate(s)</source>
        <translation>
            <numerusform>%n duplicate</numerusform>
            <numerusform>%n duplicates</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n echo(es)</source>
        <translation>
            <numerusform>%n echo</numerusform>
            <numerusform>%n echoes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n byte(s) in no frame</source>
        <translation>
            <numerusform>%n byte in no frame</numerusform>
            <numerusform>%n bytes in no frame</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n request(s) held back for a late reply</source>
        <translation>
            <numerusform>%n request held back for a late reply</numerusform>
            <numerusform>%n requests held back for a late reply</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>line opened again %n time(s)</source>
        <translation>
            <numerusform>line opened again %n time</numerusform>
            <numerusform>line opened again %n times</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n interval(s) missed</source>
        <translation>
            <numerusform>%n interval missed</numerusform>
            <numerusform>%n intervals missed</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::HistogramView</name>
    <message numerus="yes">
        <source>%1: %n replies, median %2, 99 % within %3</source>
        <translation>
            <numerusform>%1: %n reply, median %2, 99 % within %3</numerusform>
            <numerusform>%1: %n replies, median %2, 99 % within %3</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 to %2: %n replies, %3 %</source>
        <translation>
            <numerusform>%1 to %2: %n reply, %3 %</numerusform>
            <numerusform>%1 to %2: %n replies, %3 %</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::LimitPanel</name>
    <message numerus="yes">
        <source>; without %n silent station(s): %1</source>
        <translation>
            <numerusform>; without %n silent station: %1</numerusform>
            <numerusform>; without %n silent stations: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Predicted: %1 per cycle, %n requests</source>
        <translation>
            <numerusform>Predicted: %1 per cycle, %n request</numerusform>
            <numerusform>Predicted: %1 per cycle, %n requests</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Predicted: %1 per cycle, %n requests, line used %2 %</source>
        <translation>
            <numerusform>Predicted: %1 per cycle, %n request, line used %2 %</numerusform>
            <numerusform>Predicted: %1 per cycle, %n requests, line used %2 %</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>In force: %n register(s) at most</source>
        <translation>
            <numerusform>In force: %n register at most</numerusform>
            <numerusform>In force: %n registers at most</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::LinePage</name>
    <message numerus="yes">
        <source>Requests take %n registers or %1 bits at most</source>
        <translation>
            <numerusform>Requests take %n register or %1 bits at most</numerusform>
            <numerusform>Requests take %n registers or %1 bits at most</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::MainWindow</name>
    <message numerus="yes">
        <source>%n exchange(s) are missing in frames, line and health.</source>
        <translation>
            <numerusform>%n exchange is missing in frames, line and health.</numerusform>
            <numerusform>%n exchanges are missing in frames, line and health.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::MessageBar</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::PlanRows</name>
    <message numerus="yes">
        <source>%n bits, %1 asked for, %2 read along</source>
        <translation>
            <numerusform>%n bit, %1 asked for, %2 read along</numerusform>
            <numerusform>%n bits, %1 asked for, %2 read along</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n registers, %1 asked for, %2 read along</source>
        <translation>
            <numerusform>%n register, %1 asked for, %2 read along</numerusform>
            <numerusform>%n registers, %1 asked for, %2 read along</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::RecipeModel</name>
    <message numerus="yes">
        <source>%n address(es) from %1 on</source>
        <translation>
            <numerusform>%n address from %1 on</numerusform>
            <numerusform>%n addresses from %1 on</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::RecipesPage</name>
    <message numerus="yes">
        <source>%n value(s) saved in %1</source>
        <translation>
            <numerusform>%n value saved in %1</numerusform>
            <numerusform>%n values saved in %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>All was sent, but the controller has %n other value(s) than were sent</source>
        <translation>
            <numerusform>All was sent, but the controller has %n other value than was sent</numerusform>
            <numerusform>All was sent, but the controller has %n other values than were sent</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::StatusLine</name>
    <message numerus="yes">
        <source>%n cycle(s)</source>
        <translation>
            <numerusform>%n cycle</numerusform>
            <numerusform>%n cycles</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::TransferTexts</name>
    <message numerus="yes">
        <source>%1 of %n request(s)</source>
        <translation>
            <numerusform>%1 of %n request</numerusform>
            <numerusform>%1 of %n requests</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n value(s)</source>
        <translation>
            <numerusform>%n value</numerusform>
            <numerusform>%n values</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n differ(s)</source>
        <translation>
            <numerusform>%n differs</numerusform>
            <numerusform>%n differ</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not in the file</source>
        <translation>
            <numerusform>%n not in the file</numerusform>
            <numerusform>%n not in the file</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n the same</source>
        <translation>
            <numerusform>%n the same</numerusform>
            <numerusform>%n the same</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::TrendChannels</name>
    <message numerus="yes">
        <source>A plot holds %n value(s) at most</source>
        <translation>
            <numerusform>A plot holds %n value at most</numerusform>
            <numerusform>A plot holds %n values at most</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::WatchPage</name>
    <message numerus="yes">
        <source>%n values added; the filter hides some</source>
        <translation>
            <numerusform>%n value added; the filter hides it</numerusform>
            <numerusform>%n values added; the filter hides some</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n values added</source>
        <translation>
            <numerusform>%n value added</numerusform>
            <numerusform>%n values added</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 has %n faults; nothing was added</source>
        <translation>
            <numerusform>%1 has %n fault; nothing was added</numerusform>
            <numerusform>%1 has %n faults; nothing was added</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n values for other rows: select as many, or the first of them</source>
        <translation>
            <numerusform>%n value for another row: select one</numerusform>
            <numerusform>%n values for other rows: select as many, or the first of them</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n values saved in %1</source>
        <translation>
            <numerusform>%n value saved in %1</numerusform>
            <numerusform>%n values saved in %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 = %2 written, %n to go; Esc calls them off</source>
        <translation>
            <numerusform>%1 = %2 written, %n to go; Esc calls it off</numerusform>
            <numerusform>%1 = %2 written, %n to go; Esc calls them off</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n values written</source>
        <translation>
            <numerusform>%n value written</numerusform>
            <numerusform>%n values written</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n values not confirmed</source>
        <translation>
            <numerusform>%1 of %n value not confirmed</numerusform>
            <numerusform>%1 of %n values not confirmed</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>kxpanel::WriteBar</name>
    <message numerus="yes">
        <source>Write to %n values of %1: %2.</source>
        <translation>
            <numerusform>Write to %n value of %1: %2.</numerusform>
            <numerusform>Write to %n values of %1: %2.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n can only be read.</source>
        <translation>
            <numerusform>%n can only be read.</numerusform>
            <numerusform>%n can only be read.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Write %n values of %1: %2.</source>
        <translation>
            <numerusform>Write %n value of %1: %2.</numerusform>
            <numerusform>Write %n values of %1: %2.</numerusform>
        </translation>
    </message>
</context>
</TS>
