<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>ArrangePanel</name>
    <message>
        <location filename="../panels/ArrangePanel.cpp" line="23"/>
        <source>Align left edges</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrangePanel.cpp" line="24"/>
        <source>Align middles, left to right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrangePanel.cpp" line="25"/>
        <source>Align right edges</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrangePanel.cpp" line="26"/>
        <source>Align top edges</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrangePanel.cpp" line="27"/>
        <source>Align middles, top to bottom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrangePanel.cpp" line="28"/>
        <source>Align bottom edges</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrangePanel.cpp" line="36"/>
        <source>Equal gaps, left to right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrangePanel.cpp" line="37"/>
        <source>Equal gaps, top to bottom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrangePanel.cpp" line="41"/>
        <source>To the front</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrangePanel.cpp" line="42"/>
        <source>Forward</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrangePanel.cpp" line="43"/>
        <source>Backward</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrangePanel.cpp" line="44"/>
        <source>To the back</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ArrayPanel</name>
    <message>
        <location filename="../panels/ArrayPanel.cpp" line="72"/>
        <source>Rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrayPanel.cpp" line="73"/>
        <source>Columns</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrayPanel.cpp" line="74"/>
        <source>Between columns</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrayPanel.cpp" line="74"/>
        <location filename="../panels/ArrayPanel.cpp" line="75"/>
        <location filename="../panels/ArrayPanel.cpp" line="76"/>
        <location filename="../panels/ArrayPanel.cpp" line="77"/>
        <source> mm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrayPanel.cpp" line="75"/>
        <source>Between rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrayPanel.cpp" line="76"/>
        <source>Every other row to the right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrayPanel.cpp" line="77"/>
        <source>Every other column down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrayPanel.cpp" line="82"/>
        <source>R&amp;ows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrayPanel.cpp" line="83"/>
        <source>Col&amp;umns</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrayPanel.cpp" line="84"/>
        <source>&amp;Gaps</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrayPanel.cpp" line="85"/>
        <source>S&amp;hifts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrayPanel.cpp" line="95"/>
        <source>Cells</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrayPanel.cpp" line="96"/>
        <source>Cells without a check are left out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrayPanel.cpp" line="165"/>
        <source>Change &amp;Array</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrayPanel.cpp" line="165"/>
        <source>Make &amp;Array</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ArrayPanel.cpp" line="188"/>
        <source>Array</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CanvasView</name>
    <message>
        <location filename="../canvas/CanvasView.cpp" line="43"/>
        <source>Drawing</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Edits</name>
    <message>
        <location filename="../edits/Transforms.cpp" line="28"/>
        <source>Move</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../edits/Transforms.cpp" line="34"/>
        <source>Resize</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../edits/Transforms.cpp" line="43"/>
        <source>Turn</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../edits/Transforms.cpp" line="49"/>
        <source>Mirror Left to Right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../edits/Transforms.cpp" line="55"/>
        <source>Mirror Top to Bottom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../edits/Transforms.cpp" line="63"/>
        <source>Mirror Across Line</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FindingsList</name>
    <message>
        <location filename="../job/FindingsList.cpp" line="16"/>
        <source>Contours that are not quite closed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/FindingsList.cpp" line="17"/>
        <source>Outside the bed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/FindingsList.cpp" line="18"/>
        <source>Lines drawn twice (cut once)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/FindingsList.cpp" line="19"/>
        <source>Contours that cross themselves</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/FindingsList.cpp" line="20"/>
        <source>Lines shorter than the beam</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/FindingsList.cpp" line="21"/>
        <source>Parts that the beam burns away</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/FindingsList.cpp" line="22"/>
        <source>Pictures coarser than the engraving</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/FindingsList.cpp" line="23"/>
        <source>Texts not as they should be</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/FindingsList.cpp" line="24"/>
        <source>Hidden shapes (not in the job)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/FindingsList.cpp" line="25"/>
        <source>Locked shapes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/FindingsList.cpp" line="31"/>
        <source>at %1, %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/FindingsList.cpp" line="34"/>
        <source>%1 pixels per mm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/FindingsList.cpp" line="34"/>
        <source>%1 mm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/FindingsList.cpp" line="46"/>
        <source>Findings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/FindingsList.cpp" line="82"/>
        <source>at least %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/FindingsList.cpp" line="93"/>
        <source>and %1 more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/FindingsList.cpp" line="99"/>
        <source>Without lines in the job</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/FindingsList.cpp" line="107"/>
        <source>Nothing to complain of</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GeometryPanel</name>
    <message>
        <location filename="../panels/GeometryPanel.cpp" line="28"/>
        <source>Left edge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/GeometryPanel.cpp" line="28"/>
        <location filename="../panels/GeometryPanel.cpp" line="29"/>
        <location filename="../panels/GeometryPanel.cpp" line="30"/>
        <location filename="../panels/GeometryPanel.cpp" line="31"/>
        <source> mm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/GeometryPanel.cpp" line="29"/>
        <source>Top edge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/GeometryPanel.cpp" line="30"/>
        <source>Width</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/GeometryPanel.cpp" line="31"/>
        <source>Height</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/GeometryPanel.cpp" line="32"/>
        <source>Degrees to turn by, clockwise</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/GeometryPanel.cpp" line="33"/>
        <source>Keep &amp;proportions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/GeometryPanel.cpp" line="37"/>
        <source>&amp;X</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/GeometryPanel.cpp" line="38"/>
        <source>&amp;Y</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/GeometryPanel.cpp" line="39"/>
        <source>&amp;W</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/GeometryPanel.cpp" line="40"/>
        <source>&amp;H</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/GeometryPanel.cpp" line="43"/>
        <source>&amp;∠</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/GeometryPanel.cpp" line="52"/>
        <source>Turn by these degrees</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/GeometryPanel.cpp" line="53"/>
        <source>Turn the other way</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/GeometryPanel.cpp" line="54"/>
        <source>Mirror left to right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/GeometryPanel.cpp" line="55"/>
        <source>Mirror top to bottom</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ImagePanel</name>
    <message>
        <location filename="../panels/ImagePanel.cpp" line="60"/>
        <source>Cut off the left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ImagePanel.cpp" line="60"/>
        <location filename="../panels/ImagePanel.cpp" line="61"/>
        <location filename="../panels/ImagePanel.cpp" line="62"/>
        <location filename="../panels/ImagePanel.cpp" line="63"/>
        <source> mm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ImagePanel.cpp" line="61"/>
        <source>Cut off the top</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ImagePanel.cpp" line="62"/>
        <source>Cut off the right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ImagePanel.cpp" line="63"/>
        <source>Cut off the bottom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ImagePanel.cpp" line="64"/>
        <source>C&amp;rop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ImagePanel.cpp" line="69"/>
        <source>&amp;Left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ImagePanel.cpp" line="69"/>
        <source>&amp;Top</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ImagePanel.cpp" line="69"/>
        <source>&amp;Right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ImagePanel.cpp" line="69"/>
        <source>&amp;Bottom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ImagePanel.cpp" line="76"/>
        <source>&amp;Invert</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ImagePanel.cpp" line="96"/>
        <source>Crop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ImagePanel.cpp" line="106"/>
        <source>Invert</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ImagePanel.cpp" line="119"/>
        <source>%1 × %2 pixels, %3 pixels per mm</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>JobCanvas</name>
    <message>
        <location filename="../job/JobCanvas.cpp" line="21"/>
        <source>Job</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>JobForm</name>
    <message>
        <location filename="../job/JobForm.cpp" line="54"/>
        <source>Machine</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="56"/>
        <source>Bed &amp;width</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="56"/>
        <location filename="../job/JobForm.cpp" line="59"/>
        <location filename="../job/JobForm.cpp" line="106"/>
        <source> mm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="59"/>
        <source>Bed &amp;height</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="62"/>
        <source>&amp;Origin</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="62"/>
        <source>bottom left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="62"/>
        <source>top left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="65"/>
        <source>&amp;Firmware</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="71"/>
        <source>Cutting, where a layer says nothing else</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="73"/>
        <source>Fee&amp;d</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="73"/>
        <location filename="../job/JobForm.cpp" line="100"/>
        <source> mm/min</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="76"/>
        <source>&amp;Power</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="79"/>
        <source>P&amp;asses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="82"/>
        <source>Lead-in and lead-out &amp;lines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="85"/>
        <source>A&amp;rcs for curves</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="92"/>
        <source>Engraving</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="94"/>
        <source>&amp;Engrave pictures and filled outlines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="97"/>
        <source>Li&amp;nes per mm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="100"/>
        <source>Feed in ro&amp;ws</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="103"/>
        <source>Power of &amp;black</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="106"/>
        <source>Run-&amp;up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobForm.cpp" line="109"/>
        <source>Dots in place of &amp;greys</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>JobMaker</name>
    <message>
        <location filename="../job/JobMaker.cpp" line="18"/>
        <source>Making lines of shapes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobMaker.cpp" line="20"/>
        <source>Joining lines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobMaker.cpp" line="22"/>
        <source>Looking for short ways</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobMaker.cpp" line="24"/>
        <source>Looking for doubled lines</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>JobPreview</name>
    <message>
        <location filename="../job/JobPreview.cpp" line="92"/>
        <source>To the begin</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobPreview.cpp" line="93"/>
        <source>To the end</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobPreview.cpp" line="94"/>
        <source>Play</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobPreview.cpp" line="100"/>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobPreview.cpp" line="105"/>
        <location filename="../job/JobPreview.cpp" line="106"/>
        <source>Speed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobPreview.cpp" line="107"/>
        <source>whole job in 20 s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobPreview.cpp" line="109"/>
        <source>%1 × as fast</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobPreview.cpp" line="110"/>
        <source>&amp;Travel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobPreview.cpp" line="111"/>
        <source>Moves of the head without burning, dashed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobPreview.cpp" line="140"/>
        <source>&amp;Findings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobPreview.cpp" line="141"/>
        <source>&amp;Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobPreview.cpp" line="167"/>
        <source>Export &amp;G-code…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobPreview.cpp" line="167"/>
        <source>S&amp;VG…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobPreview.cpp" line="168"/>
        <source>P&amp;NG…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobPreview.cpp" line="208"/>
        <source>Looking at the drawing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobPreview.cpp" line="232"/>
        <source>There is no job: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobPreview.cpp" line="249"/>
        <source>&lt;b&gt;%1&lt;/b&gt; in the machine&lt;br&gt;%2 paths, %3 mm to cut, %4 mm of travel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../job/JobPreview.cpp" line="255"/>
        <source>&lt;br&gt;%1 mm² to engrave in %2 rows</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LayersPanel</name>
    <message>
        <location filename="../panels/LayersPanel.cpp" line="60"/>
        <location filename="../panels/LayersPanel.cpp" line="168"/>
        <source>Colour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/LayersPanel.cpp" line="60"/>
        <source>Feed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/LayersPanel.cpp" line="60"/>
        <source>Power</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/LayersPanel.cpp" line="60"/>
        <source>Passes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/LayersPanel.cpp" line="69"/>
        <source>Layers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/LayersPanel.cpp" line="70"/>
        <source>Feed in mm per minute, power as the firmware counts it; empty: as the job&apos;s settings say</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/LayersPanel.cpp" line="93"/>
        <source>Colour the selection %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/LayersPanel.cpp" line="114"/>
        <source>Do this layer earlier</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/LayersPanel.cpp" line="115"/>
        <source>Do this layer later</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/LayersPanel.cpp" line="116"/>
        <source>Select the layer&apos;s shapes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/LayersPanel.cpp" line="143"/>
        <source>%1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <location filename="../window/MainActions.cpp" line="108"/>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="110"/>
        <source>&amp;New</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="111"/>
        <source>&amp;Open…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="113"/>
        <source>&amp;Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="114"/>
        <source>Save &amp;As…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="117"/>
        <source>&amp;Import…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="119"/>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="124"/>
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="126"/>
        <source>&amp;Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="127"/>
        <source>&amp;Redo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="137"/>
        <source>Cu&amp;t</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="140"/>
        <source>&amp;Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="142"/>
        <source>&amp;Paste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="144"/>
        <source>Dup&amp;licate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="147"/>
        <source>&amp;Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="150"/>
        <source>Select &amp;All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="153"/>
        <source>Select &amp;Nothing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="159"/>
        <source>&amp;Shape</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="164"/>
        <source>&amp;Group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="165"/>
        <source>&amp;Ungroup</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="167"/>
        <source>&amp;Array…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="169"/>
        <source>Turn &amp;Left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="171"/>
        <source>Turn &amp;Right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="173"/>
        <source>&amp;Turn…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="174"/>
        <source>Mirror Left to Ri&amp;ght</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="176"/>
        <source>Mirror Top to &amp;Bottom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="178"/>
        <source>Mirror &amp;Across Line…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="180"/>
        <source>To &amp;Front</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="182"/>
        <source>For&amp;ward</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="184"/>
        <source>Bac&amp;kward</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="186"/>
        <source>T&amp;o Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="198"/>
        <source>Loc&amp;k</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="199"/>
        <source>U&amp;nlock All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="200"/>
        <source>&amp;Hide</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="201"/>
        <source>&amp;Show All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="204"/>
        <source>&amp;Close Outlines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="207"/>
        <source>F&amp;ill</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="209"/>
        <source>Unfill</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="210"/>
        <source>Fit Cur&amp;ves</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="211"/>
        <source>Clean U&amp;p</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="216"/>
        <source>&amp;Tools</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="218"/>
        <source>&amp;Select</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="219"/>
        <source>Edit &amp;Nodes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="220"/>
        <source>Select &amp;Cells</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="222"/>
        <source>&amp;Rectangle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="223"/>
        <source>&amp;Ellipse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="224"/>
        <source>&amp;Polygon</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="225"/>
        <source>Poly&amp;line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="226"/>
        <source>&amp;Bézier Pen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="227"/>
        <source>&amp;Text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="232"/>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="234"/>
        <source>Zoom &amp;In</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="235"/>
        <source>Zoom &amp;Out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="237"/>
        <source>&amp;Actual Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="239"/>
        <source>Fit &amp;Drawing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="241"/>
        <source>Fit &amp;Bed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="243"/>
        <source>Fit &amp;Selection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="246"/>
        <source>&amp;Grid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="248"/>
        <source>&amp;Leads of All Shapes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="250"/>
        <source>I&amp;nches</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="256"/>
        <source>B&amp;ed Size…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="261"/>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="263"/>
        <source>&amp;About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="264"/>
        <source>Shapebench: drawings for laser engraving and cutting, document format %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="271"/>
        <source>Tools</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="277"/>
        <source>Main</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="289"/>
        <source>Array</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="289"/>
        <source>Rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="290"/>
        <source>Columns</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="291"/>
        <source>Gap between columns (mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="292"/>
        <source>Gap between rows (mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="293"/>
        <source>Shift of every other row (mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="294"/>
        <source>Shift of every other column (mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="302"/>
        <source>Turn</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="302"/>
        <source>Degrees, clockwise</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="311"/>
        <source>Mirror Across Line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="311"/>
        <source>From x (mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="312"/>
        <source>From y (mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="313"/>
        <source>To x (mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="314"/>
        <source>To y (mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="322"/>
        <source>Bed Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="322"/>
        <source>Width (mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainActions.cpp" line="323"/>
        <source>Height (mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <location filename="../window/MainWindow.cpp" line="90"/>
        <source>%n shapes</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <location filename="../window/MainWindow.cpp" line="91"/>
        <source>%1 selected, %2 × %3 %4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainWindow.cpp" line="95"/>
        <source>in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainWindow.cpp" line="95"/>
        <source>mm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainWindow.cpp" line="128"/>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainWindow.cpp" line="128"/>
        <location filename="../window/MainWindow.cpp" line="155"/>
        <source>Documents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainWindow.cpp" line="128"/>
        <location filename="../window/MainWindow.cpp" line="135"/>
        <source>All files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainWindow.cpp" line="135"/>
        <source>Import</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainWindow.cpp" line="155"/>
        <source>Save As</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/MainWindow.cpp" line="204"/>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/Screenshots.cpp" line="98"/>
        <source>Text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/Screenshots.cpp" line="119"/>
        <source>Ellipse</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ShapePanel</name>
    <message>
        <location filename="../panels/ShapePanel.cpp" line="19"/>
        <source>Place and size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ShapePanel.cpp" line="20"/>
        <source>Text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ShapePanel.cpp" line="21"/>
        <source>Picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ShapePanel.cpp" line="22"/>
        <source>Arrange</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/ShapePanel.cpp" line="23"/>
        <source>Array</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SidePanels</name>
    <message>
        <location filename="../window/SidePanels.cpp" line="75"/>
        <source>Layers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/SidePanels.cpp" line="76"/>
        <source>Shape</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/SidePanels.cpp" line="89"/>
        <source>&amp;Theme</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/SidePanels.cpp" line="93"/>
        <source>As the &amp;Desktop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/SidePanels.cpp" line="93"/>
        <source>&amp;Light</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/SidePanels.cpp" line="94"/>
        <source>D&amp;ark</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/SidePanels.cpp" line="119"/>
        <source>&amp;Job</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/SidePanels.cpp" line="123"/>
        <source>&amp;Preview</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/SidePanels.cpp" line="128"/>
        <source>Export &amp;G-code…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/SidePanels.cpp" line="131"/>
        <source>Export &amp;SVG…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/SidePanels.cpp" line="132"/>
        <source>Export P&amp;NG…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/SidePanels.cpp" line="187"/>
        <source>Export</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/SidePanels.cpp" line="197"/>
        <source>%1 is written</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../window/SidePanels.cpp" line="199"/>
        <source>%1 is written, but: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TextPanel</name>
    <message>
        <location filename="../panels/TextPanel.cpp" line="61"/>
        <source>Size of the font</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="61"/>
        <location filename="../panels/TextPanel.cpp" line="62"/>
        <location filename="../panels/TextPanel.cpp" line="63"/>
        <source> mm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="62"/>
        <source>Added between letters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="63"/>
        <source>Added between lines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="64"/>
        <location filename="../panels/TextPanel.cpp" line="122"/>
        <source>Bold</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="64"/>
        <location filename="../panels/TextPanel.cpp" line="124"/>
        <source>Italic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="65"/>
        <source>In &amp;columns</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="70"/>
        <location filename="../panels/TextPanel.cpp" line="165"/>
        <source>Words</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="77"/>
        <source>&amp;Font</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="78"/>
        <source>&amp;Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="80"/>
        <source>&amp;Letters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="81"/>
        <source>L&amp;ines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="85"/>
        <source>Font</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="88"/>
        <source>Size of Font</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="93"/>
        <source>Gaps of Letters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="96"/>
        <source>Gaps of Lines</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="99"/>
        <source>Columns</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="117"/>
        <source>Lines to the left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="118"/>
        <source>Lines to the middle of the first one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="119"/>
        <source>Lines to the right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../panels/TextPanel.cpp" line="126"/>
        <source>Alignment of Lines</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Tools</name>
    <message>
        <location filename="../tools/CellTool.cpp" line="129"/>
        <source>Click selects a cell of the selected array, Shift adds, arrows go on; Delete leaves the selected cells out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../tools/SelectTool.cpp" line="321"/>
        <source>Click selects, Shift adds; drag moves; Tab goes from shape to shape, arrows move by 1 mm, Enter edits</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WorkDocument</name>
    <message>
        <location filename="../document/WorkDocument.cpp" line="102"/>
        <source>Untitled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../document/WorkDocumentFile.cpp" line="128"/>
        <source>is not a document of this program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../document/WorkDocumentFile.cpp" line="130"/>
        <source>is damaged, and holds no shape that can be saved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../document/WorkDocumentFile.cpp" line="131"/>
        <source>%1

%2 shapes can be saved, %3 bytes would be left out. Open what can be saved?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../document/WorkDocumentFile.cpp" line="132"/>
        <source>Damaged document</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../document/WorkDocumentFile.cpp" line="138"/>
        <source>no room for a temporary file: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../document/WorkDocumentFile.cpp" line="154"/>
        <source>Changes of %1 from %2 were not saved. Open them?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../document/WorkDocumentFile.cpp" line="155"/>
        <location filename="../document/WorkDocumentFile.cpp" line="175"/>
        <source>Recover changes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../document/WorkDocumentFile.cpp" line="175"/>
        <source>A drawing from %1 was never saved. Open it?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
