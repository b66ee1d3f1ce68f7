<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>ArrangePanel</name>
    <message>
        <source>Align left edges</source>
        <translation>左边对齐</translation>
    </message>
    <message>
        <source>Align middles, left to right</source>
        <translation>水平居中对齐</translation>
    </message>
    <message>
        <source>Align right edges</source>
        <translation>右边对齐</translation>
    </message>
    <message>
        <source>Align top edges</source>
        <translation>上边对齐</translation>
    </message>
    <message>
        <source>Align middles, top to bottom</source>
        <translation>垂直居中对齐</translation>
    </message>
    <message>
        <source>Align bottom edges</source>
        <translation>下边对齐</translation>
    </message>
    <message>
        <source>Equal gaps, left to right</source>
        <translation>水平等距分布</translation>
    </message>
    <message>
        <source>Equal gaps, top to bottom</source>
        <translation>垂直等距分布</translation>
    </message>
    <message>
        <source>To the front</source>
        <translation>移到最前</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>前移一层</translation>
    </message>
    <message>
        <source>Backward</source>
        <translation>后移一层</translation>
    </message>
    <message>
        <source>To the back</source>
        <translation>移到最后</translation>
    </message>
</context>
<context>
    <name>ArrayPanel</name>
    <message>
        <source>Rows</source>
        <translation>行数</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>列数</translation>
    </message>
    <message>
        <source>Between columns</source>
        <translation>列间距</translation>
    </message>
    <message>
        <source>Between rows</source>
        <translation>行间距</translation>
    </message>
    <message>
        <source>Every other row to the right</source>
        <translation>隔行右移</translation>
    </message>
    <message>
        <source>Every other column down</source>
        <translation>隔列下移</translation>
    </message>
    <message>
        <source>Col&amp;umns</source>
        <translation>列数(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Gaps</source>
        <translation>间距(&amp;G)</translation>
    </message>
    <message>
        <source>Cells</source>
        <translation>单元</translation>
    </message>
    <message>
        <source>Cells without a check are left out</source>
        <translation>未勾选的单元不加工</translation>
    </message>
    <message>
        <source>Change &amp;Array</source>
        <translation>更改阵列(&amp;A)</translation>
    </message>
    <message>
        <source>Make &amp;Array</source>
        <translation>生成阵列(&amp;A)</translation>
    </message>
    <message>
        <source>The cells of this array do not lie in rows and columns</source>
        <translation>此阵列的单元没有按行列排列</translation>
    </message>
    <message>
        <source>&amp;Rows</source>
        <translation>行数(&amp;R)</translation>
    </message>
    <message>
        <source>Shifts</source>
        <translation>错位</translation>
    </message>
</context>
<context>
    <name>AsideWork</name>
    <message>
        <source>%1 has to wait: other work goes on</source>
        <translation>%1：须等待，其他工作正在进行</translation>
    </message>
    <message>
        <source>%1 was given up</source>
        <translation>%1：已放弃</translation>
    </message>
</context>
<context>
    <name>CanvasView</name>
    <message>
        <source>Drawing</source>
        <translation>图形</translation>
    </message>
</context>
<context>
    <name>ColorLayers</name>
    <message>
        <source>Layer</source>
        <translation>图层</translation>
    </message>
    <message>
        <source>Order of Layers</source>
        <translation>图层顺序</translation>
    </message>
    <message>
        <source>cannot be removed: %1</source>
        <translation>无法删除：%1</translation>
    </message>
</context>
<context>
    <name>Edits</name>
    <message>
        <source>Move</source>
        <translation>移动</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>调整大小</translation>
    </message>
    <message>
        <source>Turn</source>
        <translation>旋转</translation>
    </message>
    <message>
        <source>Mirror Left to Right</source>
        <translation>左右镜像</translation>
    </message>
    <message>
        <source>Mirror Top to Bottom</source>
        <translation>上下镜像</translation>
    </message>
    <message>
        <source>Mirror Across Line</source>
        <translation>沿直线镜像</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>剪贴板</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>创建副本</translation>
    </message>
    <message>
        <source>cannot be opened: %1</source>
        <translation>无法打开：%1</translation>
    </message>
    <message>
        <source>paints no path</source>
        <translation>没有绘制任何路径</translation>
    </message>
    <message>
        <source>holds no text</source>
        <translation>没有文字</translation>
    </message>
    <message>
        <source>the text is longer than a text shape holds; its end was cut off</source>
        <translation>文字超出文字图形的容量，末尾已截断</translation>
    </message>
    <message>
        <source>holds no shapes</source>
        <translation>没有图形</translation>
    </message>
    <message>
        <source>the picture may be damaged</source>
        <translation>图片可能已损坏</translation>
    </message>
    <message>
        <source>a folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>is no drawing, picture or text that can be imported (%1)</source>
        <translation>不是可以导入的图形、图片或文字（%1）</translation>
    </message>
    <message>
        <source>Import %1</source>
        <translation>导入 %1</translation>
    </message>
    <message>
        <source>Drawings, pictures, texts, documents</source>
        <translation>图形、图片、文字、文档</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>组合</translation>
    </message>
    <message>
        <source>The array stays: its cells hold nothing, or more shapes than memory takes.</source>
        <translation>阵列保持不变：单元为空，或图形过多，内存不足。</translation>
    </message>
    <message>
        <source>Ungroup</source>
        <translation>取消组合</translation>
    </message>
    <message>
        <source>Array</source>
        <translation>阵列</translation>
    </message>
    <message>
        <source>has too many cells, or goes beyond a kilometre</source>
        <translation>单元过多，或超出一公里</translation>
    </message>
    <message>
        <source>Delete Cells</source>
        <translation>删除单元</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>顺序</translation>
    </message>
    <message>
        <source>Lock</source>
        <translation>锁定</translation>
    </message>
    <message>
        <source>Unlock All</source>
        <translation>全部解锁</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>隐藏</translation>
    </message>
    <message>
        <source>Show All</source>
        <translation>全部显示</translation>
    </message>
    <message>
        <source>Fill</source>
        <translation>填充</translation>
    </message>
    <message>
        <source>Close Outlines</source>
        <translation>闭合轮廓</translation>
    </message>
    <message>
        <source>Unfill</source>
        <translation>取消填充</translation>
    </message>
    <message>
        <source>Curves cannot be fitted: the plug-in is not installed, or switched off.</source>
        <translation>无法拟合曲线：插件未安装或已关闭。</translation>
    </message>
    <message>
        <source>Fit Curves</source>
        <translation>拟合曲线</translation>
    </message>
    <message>
        <source>No selected outline has fewer points as curves.</source>
        <translation>所选轮廓用曲线表示并不能减少点数。</translation>
    </message>
    <message>
        <source>Clean Up</source>
        <translation>清理</translation>
    </message>
    <message>
        <source>Every shape can be used.</source>
        <translation>所有图形都可以使用。</translation>
    </message>
    <message>
        <source>No selected outline could be filled: each is filled already or has fewer than three points.</source>
        <translation>无法填充所选轮廓：它们已经填充，或少于三个点。</translation>
    </message>
    <message>
        <source>Nothing is pasted: the clipboard holds no shapes.</source>
        <translation>未粘贴：剪贴板中没有图形。</translation>
    </message>
    <message>
        <source>Nothing is cut off: the sides are to be filled in first.</source>
        <translation>未裁剪：请先填写各边的裁剪量。</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>裁剪</translation>
    </message>
    <message>
        <source>A picture stays as it is: nothing of it would remain.</source>
        <translation>图片保持不变：裁剪后将没有剩余。</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>反色</translation>
    </message>
    <message>
        <source>A picture stays as it is: it has no pixels.</source>
        <translation>图片保持不变：它没有像素。</translation>
    </message>
    <message>
        <source>The array stays: it needs a cell, and no more cells than memory takes, none of them beyond a kilometre.</source>
        <translation>阵列保持不变：至少需要一个单元格，单元格数量不得超出内存，且均不得超出一公里。</translation>
    </message>
    <message>
        <source>Words</source>
        <translation>文字内容</translation>
    </message>
    <message>
        <source>The text is longer than a text shape holds; its end was cut off.</source>
        <translation>文字超出文字图形的容量，末尾已截断。</translation>
    </message>
    <message numerus="yes">
        <source>%n outlines fitted: %1 points became %2.</source>
        <translation>
            <numerusform>已拟合 %n 条轮廓：%1 个点变为 %2 个。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n unusable shapes removed.</source>
        <translation>
            <numerusform>已移除 %n 个无法使用的图形。</numerusform>
        </translation>
    </message>
    <message>
        <source>Importing %1</source>
        <translation>正在导入 %1</translation>
    </message>
</context>
<context>
    <name>FindingsList</name>
    <message>
        <source>Contours that are not quite closed</source>
        <translation>未完全闭合的轮廓</translation>
    </message>
    <message>
        <source>Outside the bed</source>
        <translation>超出工作台</translation>
    </message>
    <message>
        <source>Lines drawn twice (cut once)</source>
        <translation>重复的线（只切一次）</translation>
    </message>
    <message>
        <source>Contours that cross themselves</source>
        <translation>自相交的轮廓</translation>
    </message>
    <message>
        <source>Lines shorter than the beam</source>
        <translation>短于光斑的线</translation>
    </message>
    <message>
        <source>Parts that the beam burns away</source>
        <translation>会被光束烧掉的细小部分</translation>
    </message>
    <message>
        <source>Pictures coarser than the engraving</source>
        <translation>分辨率低于雕刻精度的图片</translation>
    </message>
    <message>
        <source>Texts not as they should be</source>
        <translation>显示不正确的文字</translation>
    </message>
    <message>
        <source>Hidden shapes (not in the job)</source>
        <translation>隐藏的图形（不加工）</translation>
    </message>
    <message>
        <source>Locked shapes</source>
        <translation>锁定的图形</translation>
    </message>
    <message>
        <source>%1 pixels per mm</source>
        <translation>每毫米 %1 像素</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>检查结果</translation>
    </message>
    <message>
        <source>at least %1</source>
        <translation>至少 %1</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>另有 %1 处</translation>
    </message>
    <message>
        <source>Without lines in the job</source>
        <translation>作业中没有线条的图形</translation>
    </message>
    <message>
        <source>Nothing to complain of</source>
        <translation>没有发现问题</translation>
    </message>
    <message>
        <source>open by %1</source>
        <translation>开口 %1</translation>
    </message>
    <message>
        <source>%1 outside</source>
        <translation>超出 %1</translation>
    </message>
    <message>
        <source>%1 drawn twice</source>
        <translation>重复绘制 %1</translation>
    </message>
    <message>
        <source>crosses itself</source>
        <translation>自相交</translation>
    </message>
    <message>
        <source>%1 long</source>
        <translation>长 %1</translation>
    </message>
    <message>
        <source>%1 wide</source>
        <translation>宽 %1</translation>
    </message>
    <message>
        <source>text</source>
        <translation>文字</translation>
    </message>
    <message>
        <source>hidden</source>
        <translation>已隐藏</translation>
    </message>
    <message>
        <source>locked</source>
        <translation>已锁定</translation>
    </message>
    <message>
        <source>fonts that are not installed are replaced</source>
        <translation>未安装的字体已被替换</translation>
    </message>
    <message>
        <source>boxes, or nothing, stand for characters that no font has or that lie beyond the first plane</source>
        <translation>没有字体包含或位于第一平面之外的字符显示为方框或空白</translation>
    </message>
    <message>
        <source>letters are set one by one from left to right, which these need otherwise</source>
        <translation>字母从左到右逐个排列，而这些字母需要其他排法</translation>
    </message>
    <message>
        <source>white space and control characters that take no room</source>
        <translation>不占位置的空白和控制字符</translation>
    </message>
    <message>
        <source>hidden picture</source>
        <translation>隐藏的图片</translation>
    </message>
    <message>
        <source>hidden vector</source>
        <translation>隐藏的矢量图形</translation>
    </message>
    <message>
        <source>hidden text</source>
        <translation>隐藏的文字</translation>
    </message>
    <message>
        <source>hidden group</source>
        <translation>隐藏的组</translation>
    </message>
    <message>
        <source>hidden array</source>
        <translation>隐藏的阵列</translation>
    </message>
    <message>
        <source>picture</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>picture without pixels</source>
        <translation>没有像素的图片</translation>
    </message>
    <message>
        <source>vector without lines</source>
        <translation>没有线条的矢量图形</translation>
    </message>
    <message>
        <source>text without lines</source>
        <translation>没有线条的文字</translation>
    </message>
    <message>
        <source>array without cells</source>
        <translation>没有单元的阵列</translation>
    </message>
    <message>
        <source>cell without place</source>
        <translation>没有位置的单元</translation>
    </message>
    <message>
        <source>point without place</source>
        <translation>没有位置的点</translation>
    </message>
    <message>
        <source>%1, at %2, %3</source>
        <translation>%1，位于 %2, %3</translation>
    </message>
</context>
<context>
    <name>GeometryPanel</name>
    <message>
        <source>Left edge</source>
        <translation>左边位置</translation>
    </message>
    <message>
        <source>Top edge</source>
        <translation>上边位置</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>宽度</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高度</translation>
    </message>
    <message>
        <source>Degrees to turn by, clockwise</source>
        <translation>旋转角度，顺时针</translation>
    </message>
    <message>
        <source>&amp;X</source>
        <translation>&amp;X</translation>
    </message>
    <message>
        <source>&amp;Y</source>
        <translation>&amp;Y</translation>
    </message>
    <message>
        <source>&amp;W</source>
        <translation>宽(&amp;W)</translation>
    </message>
    <message>
        <source>Turn by these degrees</source>
        <translation>按此角度旋转</translation>
    </message>
    <message>
        <source>Turn the other way</source>
        <translation>反向旋转</translation>
    </message>
    <message>
        <source>Mirror left to right</source>
        <translation>左右镜像</translation>
    </message>
    <message>
        <source>Mirror top to bottom</source>
        <translation>上下镜像</translation>
    </message>
    <message>
        <source>&amp;Keep proportions</source>
        <translation>保持比例(&amp;K)</translation>
    </message>
    <message>
        <source>H</source>
        <translation>高</translation>
    </message>
    <message>
        <source>∠</source>
        <translation>∠</translation>
    </message>
</context>
<context>
    <name>ImagePanel</name>
    <message>
        <source>Cut off the left</source>
        <translation>左侧裁去</translation>
    </message>
    <message>
        <source>Cut off the top</source>
        <translation>上方裁去</translation>
    </message>
    <message>
        <source>Cut off the right</source>
        <translation>右侧裁去</translation>
    </message>
    <message>
        <source>Cut off the bottom</source>
        <translation>下方裁去</translation>
    </message>
    <message>
        <source>%1 × %2 pixels, %3 pixels per %4</source>
        <translation>%1 × %2 像素，每%4 %3 像素</translation>
    </message>
    <message>
        <source>Cro&amp;p</source>
        <translation>裁剪(&amp;P)</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>左</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>上</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>右</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>下</translation>
    </message>
    <message>
        <source>I&amp;nvert</source>
        <translation>反色(&amp;N)</translation>
    </message>
</context>
<context>
    <name>JobCanvas</name>
    <message>
        <source>Job</source>
        <translation>作业</translation>
    </message>
</context>
<context>
    <name>JobExport</name>
    <message>
        <source>The run-up of %1 rows reaches left of 0, to X%2: move what is engraved to the right</source>
        <translation>%1 行的起跑段越过零点左侧，到达 X%2:请将雕刻内容右移</translation>
    </message>
    <message>
        <source>Nothing is engraved: all is white</source>
        <translation>没有雕刻内容：全部为白色</translation>
    </message>
    <message>
        <source>%1 paths leave the bed</source>
        <translation>%1 条路径超出工作台</translation>
    </message>
    <message>
        <source>G-code (*.gcode *.nc *.ngc *.gc)</source>
        <translation>G 代码 (*.gcode *.nc *.ngc *.gc)</translation>
    </message>
    <message>
        <source>SVG drawing (*.svg)</source>
        <translation>SVG 图形 (*.svg)</translation>
    </message>
    <message>
        <source>PNG picture (*.png)</source>
        <translation>PNG 图片 (*.png)</translation>
    </message>
    <message>
        <source>the drawing has no line to follow</source>
        <translation>图形中没有可加工的线条</translation>
    </message>
    <message>
        <source>layer #%1 has power %2, but the firmware&apos;s whole power is %3</source>
        <translation>图层 #%1 的功率为 %2，而固件的最大功率为 %3</translation>
    </message>
    <message>
        <source>the job is too long for a picture</source>
        <translation>作业太长，无法生成图片</translation>
    </message>
</context>
<context>
    <name>JobForm</name>
    <message>
        <source>Machine</source>
        <translation>机器</translation>
    </message>
    <message>
        <source>Bed &amp;width</source>
        <translation>工作台宽度(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Origin</source>
        <translation>原点(&amp;O)</translation>
    </message>
    <message>
        <source>bottom left</source>
        <translation>左下角</translation>
    </message>
    <message>
        <source>top left</source>
        <translation>左上角</translation>
    </message>
    <message>
        <source>Cutting, where a layer says nothing else</source>
        <translation>切割（图层未另行设置时）</translation>
    </message>
    <message>
        <source>Fee&amp;d</source>
        <translation>进给速度(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Power</source>
        <translation>功率(&amp;P)</translation>
    </message>
    <message>
        <source>P&amp;asses</source>
        <translation>遍数(&amp;A)</translation>
    </message>
    <message>
        <source>Lead-in and lead-out &amp;lines</source>
        <translation>引入线和引出线(&amp;L)</translation>
    </message>
    <message>
        <source>A&amp;rcs for curves</source>
        <translation>曲线用圆弧表示(&amp;R)</translation>
    </message>
    <message>
        <source>Engraving</source>
        <translation>雕刻</translation>
    </message>
    <message>
        <source>Li&amp;nes per mm</source>
        <translation>每毫米行数(&amp;N)</translation>
    </message>
    <message>
        <source>Power of &amp;black</source>
        <translation>黑色功率(&amp;B)</translation>
    </message>
    <message>
        <source>Run-&amp;up</source>
        <translation>起跑距离(&amp;U)</translation>
    </message>
    <message>
        <source>Bed hei&amp;ght</source>
        <translation>工作台高度(&amp;G)</translation>
    </message>
    <message>
        <source>Fir&amp;mware</source>
        <translation>固件(&amp;M)</translation>
    </message>
    <message>
        <source>Engrave pi&amp;ctures and filled outlines</source>
        <translation>雕刻图片和填充轮廓(&amp;C)</translation>
    </message>
    <message>
        <source>Feed &amp;in rows</source>
        <translation>雕刻进给速度(&amp;I)</translation>
    </message>
    <message>
        <source>Dots in place of gre&amp;ys</source>
        <translation>以网点代替灰度(&amp;Y)</translation>
    </message>
</context>
<context>
    <name>JobMaker</name>
    <message>
        <source>Making lines of shapes</source>
        <translation>正在生成线条</translation>
    </message>
    <message>
        <source>Joining lines</source>
        <translation>正在连接线条</translation>
    </message>
    <message>
        <source>Looking for short ways</source>
        <translation>正在优化路径</translation>
    </message>
    <message>
        <source>Looking for doubled lines</source>
        <translation>正在查找重复线</translation>
    </message>
</context>
<context>
    <name>JobPreview</name>
    <message>
        <source>To the begin</source>
        <translation>回到开头</translation>
    </message>
    <message>
        <source>To the end</source>
        <translation>跳到结尾</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>播放</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>速度</translation>
    </message>
    <message>
        <source>whole job in 20 s</source>
        <translation>20 秒播放全部</translation>
    </message>
    <message>
        <source>%1 × as fast</source>
        <translation>%1 倍速</translation>
    </message>
    <message>
        <source>Moves of the head without burning, dashed</source>
        <translation>激光关闭时的移动，以虚线显示</translation>
    </message>
    <message>
        <source>Looking at the drawing</source>
        <translation>正在读取图形</translation>
    </message>
    <message>
        <source>There is no job: %1</source>
        <translation>没有作业：%1</translation>
    </message>
    <message>
        <source>Travel</source>
        <translation>空程</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>检查结果</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Export G-code…</source>
        <translation>导出 G 代码…</translation>
    </message>
    <message>
        <source>SVG…</source>
        <translation>SVG…</translation>
    </message>
    <message>
        <source>PNG…</source>
        <translation>PNG…</translation>
    </message>
    <message>
        <source>&lt;b&gt;%1&lt;/b&gt; in the machine&lt;br&gt;%2 paths, %3 %5 to cut, %4 %5 of travel</source>
        <translation>加工时间 &lt;b&gt;%1&lt;/b&gt;&lt;br&gt;%2 条路径，切割 %3 %5，空程 %4 %5</translation>
    </message>
    <message>
        <source>&lt;br&gt;%1 %3 to engrave in %2 rows</source>
        <translation>&lt;br&gt;雕刻 %1 %3，共 %2 行</translation>
    </message>
    <message>
        <source>Making the job</source>
        <translation>正在生成任务</translation>
    </message>
    <message>
        <source>Making the job was given up</source>
        <translation>已放弃生成任务</translation>
    </message>
</context>
<context>
    <name>LayersPanel</name>
    <message>
        <source>Colour</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>Feed</source>
        <translation>速度</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>功率</translation>
    </message>
    <message>
        <source>Passes</source>
        <translation>遍数</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>图层</translation>
    </message>
    <message>
        <source>Do this layer earlier</source>
        <translation>提前加工此图层</translation>
    </message>
    <message>
        <source>Do this layer later</source>
        <translation>推后加工此图层</translation>
    </message>
    <message>
        <source>Select the layer&apos;s shapes</source>
        <translation>选择此图层的图形</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1(%2)</translation>
    </message>
    <message>
        <source>Feed in %1, power as the firmware counts it; empty: as the job&apos;s settings say</source>
        <translation>速度单位为%1，功率按固件的数值；留空则使用作业设置</translation>
    </message>
    <message>
        <source>%1 is no number that is possible here</source>
        <translation>%1 不是此处可用的数值</translation>
    </message>
    <message>
        <source>What has this colour lies in groups and arrays, is locked or hidden</source>
        <translation>此颜色的图形位于群组或阵列中，或已锁定、隐藏</translation>
    </message>
    <message>
        <source>Colour the selection, or what is drawn next, %1</source>
        <translation>将所选图形或接下来绘制的图形设为颜色 %1</translation>
    </message>
    <message>
        <source>Drawn next: %1</source>
        <translation>接下来绘制：%1</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>新建(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>打开(&amp;O)…</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>保存(&amp;S)</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>另存为(&amp;A)…</translation>
    </message>
    <message>
        <source>&amp;Import…</source>
        <translation>导入(&amp;I)…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>撤销(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>重做(&amp;R)</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>剪切(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>粘贴(&amp;P)</translation>
    </message>
    <message>
        <source>Dup&amp;licate</source>
        <translation>创建副本(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>删除(&amp;D)</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>全选(&amp;A)</translation>
    </message>
    <message>
        <source>Select &amp;Nothing</source>
        <translation>取消选择(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Shape</source>
        <translation>图形(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Group</source>
        <translation>组合(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Ungroup</source>
        <translation>取消组合(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Array…</source>
        <translation>阵列(&amp;A)…</translation>
    </message>
    <message>
        <source>Turn &amp;Left</source>
        <translation>向左旋转(&amp;L)</translation>
    </message>
    <message>
        <source>Turn &amp;Right</source>
        <translation>向右旋转(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Turn…</source>
        <translation>旋转(&amp;T)…</translation>
    </message>
    <message>
        <source>Mirror Top to &amp;Bottom</source>
        <translation>上下镜像(&amp;B)</translation>
    </message>
    <message>
        <source>To &amp;Front</source>
        <translation>移到最前(&amp;F)</translation>
    </message>
    <message>
        <source>For&amp;ward</source>
        <translation>前移一层(&amp;W)</translation>
    </message>
    <message>
        <source>Bac&amp;kward</source>
        <translation>后移一层(&amp;K)</translation>
    </message>
    <message>
        <source>T&amp;o Back</source>
        <translation>移到最后(&amp;O)</translation>
    </message>
    <message>
        <source>U&amp;nlock All</source>
        <translation>全部解锁(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Hide</source>
        <translation>隐藏(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Show All</source>
        <translation>全部显示(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Close Outlines</source>
        <translation>闭合轮廓(&amp;C)</translation>
    </message>
    <message>
        <source>F&amp;ill</source>
        <translation>填充(&amp;I)</translation>
    </message>
    <message>
        <source>Unfill</source>
        <translation>取消填充</translation>
    </message>
    <message>
        <source>Fit Cur&amp;ves</source>
        <translation>拟合曲线(&amp;V)</translation>
    </message>
    <message>
        <source>Clean U&amp;p</source>
        <translation>清理(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>工具(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Select</source>
        <translation>选择(&amp;S)</translation>
    </message>
    <message>
        <source>Edit &amp;Nodes</source>
        <translation>编辑节点(&amp;N)</translation>
    </message>
    <message>
        <source>Select &amp;Cells</source>
        <translation>选择单元(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Rectangle</source>
        <translation>矩形(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Ellipse</source>
        <translation>椭圆(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Polygon</source>
        <translation>多边形(&amp;P)</translation>
    </message>
    <message>
        <source>Poly&amp;line</source>
        <translation>折线(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Bézier Pen</source>
        <translation>贝塞尔钢笔(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Text</source>
        <translation>文字(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>放大(&amp;I)</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>缩小(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Actual Size</source>
        <translation>实际大小(&amp;A)</translation>
    </message>
    <message>
        <source>Fit &amp;Drawing</source>
        <translation>适合图形(&amp;D)</translation>
    </message>
    <message>
        <source>Fit &amp;Bed</source>
        <translation>适合工作台(&amp;B)</translation>
    </message>
    <message>
        <source>Fit &amp;Selection</source>
        <translation>适合所选(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Grid</source>
        <translation>网格(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Leads of All Shapes</source>
        <translation>所有图形的引线(&amp;L)</translation>
    </message>
    <message>
        <source>I&amp;nches</source>
        <translation>英寸(&amp;N)</translation>
    </message>
    <message>
        <source>B&amp;ed Size…</source>
        <translation>工作台尺寸(&amp;E)…</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>关于(&amp;A)</translation>
    </message>
    <message>
        <source>Shapebench: drawings for laser engraving and cutting, document format %1.</source>
        <translation>Shapebench:激光雕刻与切割图形，文档格式 %1。</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>工具</translation>
    </message>
    <message>
        <source>Main</source>
        <translation>主工具栏</translation>
    </message>
    <message>
        <source>Array</source>
        <translation>阵列</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>行数</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>列数</translation>
    </message>
    <message>
        <source>Turn</source>
        <translation>旋转</translation>
    </message>
    <message>
        <source>Degrees, clockwise</source>
        <translation>角度，顺时针</translation>
    </message>
    <message>
        <source>Mirror Across Line</source>
        <translation>沿直线镜像</translation>
    </message>
    <message>
        <source>Bed Size</source>
        <translation>工作台尺寸</translation>
    </message>
    <message numerus="yes">
        <source>%n shapes</source>
        <translation>
            <numerusform>%n 个图形</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 selected, %2 × %3 %4</source>
        <translation>已选 %1 个，%2 × %3 %4</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>文档</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>所有文件</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>导入</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文字</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>椭圆</translation>
    </message>
    <message>
        <source>Gap between columns</source>
        <translation>列间距</translation>
    </message>
    <message>
        <source>Gap between rows</source>
        <translation>行间距</translation>
    </message>
    <message>
        <source>Shift of every other row</source>
        <translation>隔行错位</translation>
    </message>
    <message>
        <source>Shift of every other column</source>
        <translation>隔列错位</translation>
    </message>
    <message>
        <source>From x</source>
        <translation>起点 x</translation>
    </message>
    <message>
        <source>From y</source>
        <translation>起点 y</translation>
    </message>
    <message>
        <source>To x</source>
        <translation>终点 x</translation>
    </message>
    <message>
        <source>To y</source>
        <translation>终点 y</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>宽度</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高度</translation>
    </message>
    <message>
        <source>&amp;Mirror</source>
        <translation>镜像(&amp;M)</translation>
    </message>
    <message>
        <source>Sna&amp;p to Shapes and Grid</source>
        <translation>吸附到图形和网格(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Mirror Left to Right</source>
        <translation>左右镜像(&amp;M)</translation>
    </message>
    <message>
        <source>Mirror Across Lin&amp;e…</source>
        <translation>沿直线镜像(&amp;E)…</translation>
    </message>
    <message>
        <source>Lock</source>
        <translation>锁定</translation>
    </message>
</context>
<context>
    <name>MessageQuestions</name>
    <message>
        <source>Unsaved changes</source>
        <translation>未保存的更改</translation>
    </message>
    <message>
        <source>Save the changes of %1?</source>
        <translation>保存对 %1 的更改吗?</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>Questions</name>
    <message>
        <source>%1 exists. Replace it?</source>
        <translation>%1 已存在。替换它吗?</translation>
    </message>
</context>
<context>
    <name>ShapePanel</name>
    <message>
        <source>Place and size</source>
        <translation>位置和大小</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文字</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>Arrange</source>
        <translation>排列</translation>
    </message>
    <message>
        <source>Array</source>
        <translation>阵列</translation>
    </message>
</context>
<context>
    <name>SidePanels</name>
    <message>
        <source>Layers</source>
        <translation>图层</translation>
    </message>
    <message>
        <source>Shape</source>
        <translation>图形</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>主题(&amp;T)</translation>
    </message>
    <message>
        <source>As the &amp;Desktop</source>
        <translation>跟随桌面(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>浅色(&amp;L)</translation>
    </message>
    <message>
        <source>D&amp;ark</source>
        <translation>深色(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Job</source>
        <translation>作业(&amp;J)</translation>
    </message>
    <message>
        <source>&amp;Preview</source>
        <translation>预览(&amp;P)</translation>
    </message>
    <message>
        <source>Export &amp;G-code…</source>
        <translation>导出 G 代码(&amp;G)…</translation>
    </message>
    <message>
        <source>Export &amp;SVG…</source>
        <translation>导出 SVG(&amp;S)…</translation>
    </message>
    <message>
        <source>Export P&amp;NG…</source>
        <translation>导出 PNG(&amp;N)…</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>导出</translation>
    </message>
    <message>
        <source>%1 is written</source>
        <translation>已写入 %1</translation>
    </message>
    <message>
        <source>%1 is written, but: %2</source>
        <translation>已写入 %1，但是：%2</translation>
    </message>
    <message>
        <source>Ne&amp;xt Part of the Window</source>
        <translation>窗口的下一部分(&amp;X)</translation>
    </message>
    <message>
        <source>Writing %1</source>
        <translation>正在写入 %1</translation>
    </message>
</context>
<context>
    <name>TextPanel</name>
    <message>
        <source>Size of the font</source>
        <translation>字号</translation>
    </message>
    <message>
        <source>Added between letters</source>
        <translation>字间距增量</translation>
    </message>
    <message>
        <source>Added between lines</source>
        <translation>行间距增量</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>粗体</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>斜体</translation>
    </message>
    <message>
        <source>In &amp;columns</source>
        <translation>竖排(&amp;C)</translation>
    </message>
    <message>
        <source>Words</source>
        <translation>内容</translation>
    </message>
    <message>
        <source>&amp;Letters</source>
        <translation>字距(&amp;L)</translation>
    </message>
    <message>
        <source>L&amp;ines</source>
        <translation>行距(&amp;I)</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>字体</translation>
    </message>
    <message>
        <source>Size of Font</source>
        <translation>字号</translation>
    </message>
    <message>
        <source>Gaps of Letters</source>
        <translation>字距</translation>
    </message>
    <message>
        <source>Gaps of Lines</source>
        <translation>行距</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>列数</translation>
    </message>
    <message>
        <source>Lines to the left</source>
        <translation>各行左对齐</translation>
    </message>
    <message>
        <source>Lines to the middle of the first one</source>
        <translation>各行以首行居中</translation>
    </message>
    <message>
        <source>Lines to the right</source>
        <translation>各行右对齐</translation>
    </message>
    <message>
        <source>Alignment of Lines</source>
        <translation>行对齐</translation>
    </message>
    <message>
        <source>F&amp;ont</source>
        <translation>字体(&amp;O)</translation>
    </message>
    <message>
        <source>Si&amp;ze</source>
        <translation>字号(&amp;Z)</translation>
    </message>
</context>
<context>
    <name>Tools</name>
    <message>
        <source>Click selects a cell of the selected array, Shift adds, arrows go on; Delete leaves the selected cells out</source>
        <translation>单击选择阵列中的单元，Shift 加选，方向键移动；Delete 去掉所选单元</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>矩形</translation>
    </message>
    <message>
        <source>Drag draws a rectangle, with Shift a square; Enter asks for numbers; the space bar begins and ends it</source>
        <translation>拖动绘制矩形，按住 Shift 绘制正方形；Enter 输入数值；空格键开始和结束</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>椭圆</translation>
    </message>
    <message>
        <source>Drag draws an ellipse, with Shift a circle; Enter asks for numbers; the space bar begins and ends it</source>
        <translation>拖动绘制椭圆，按住 Shift 绘制圆；Enter 输入数值；空格键开始和结束</translation>
    </message>
    <message>
        <source>%1 sides</source>
        <translation>%1 条边</translation>
    </message>
    <message>
        <source>Sides</source>
        <translation>边数</translation>
    </message>
    <message>
        <source>Polygon</source>
        <translation>多边形</translation>
    </message>
    <message>
        <source>Drag from the centre to a corner; plus and minus change the number of sides; Enter asks for numbers</source>
        <translation>从中心拖到顶点；加号和减号改变边数；Enter 输入数值</translation>
    </message>
    <message>
        <source>Move Node</source>
        <translation>移动节点</translation>
    </message>
    <message>
        <source>Insert Node</source>
        <translation>插入节点</translation>
    </message>
    <message>
        <source>Delete Node</source>
        <translation>删除节点</translation>
    </message>
    <message>
        <source>Polyline</source>
        <translation>折线</translation>
    </message>
    <message>
        <source>Each click sets a point, on the first one it closes; Enter ends, with Shift closes; Backspace goes back</source>
        <translation>每次单击添加一点，单击首点则闭合；Enter 结束，Shift+Enter 闭合；退格键撤回一点</translation>
    </message>
    <message>
        <source>Curve</source>
        <translation>曲线</translation>
    </message>
    <message>
        <source>Click sets a corner, drag bends the curve; Enter ends, with Shift closes; Backspace goes back</source>
        <translation>单击添加角点，拖动弯曲曲线；Enter 结束，Shift+Enter 闭合；退格键撤回一点</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文字</translation>
    </message>
    <message>
        <source>Delete Text</source>
        <translation>删除文字</translation>
    </message>
    <message>
        <source>Edit Text</source>
        <translation>编辑文字</translation>
    </message>
    <message>
        <source>The text is longer than a text shape holds; its end was cut off.</source>
        <translation>文字超出文字图形的容量，末尾已截断。</translation>
    </message>
    <message>
        <source>Click begins a text, or edits the one that is clicked; Escape ends typing</source>
        <translation>单击开始输入文字，或编辑单击的文字；Esc 结束输入</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>左</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>上</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>宽度</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高度</translation>
    </message>
    <message>
        <source>Centre x</source>
        <translation>中心 x</translation>
    </message>
    <message>
        <source>Centre y</source>
        <translation>中心 y</translation>
    </message>
    <message>
        <source>Radius of the corners</source>
        <translation>顶点半径</translation>
    </message>
    <message>
        <source>Nothing is selected that could be mirrored</source>
        <translation>没有选中可镜像的图形</translation>
    </message>
    <message>
        <source>Drag along the line to mirror across, or click its two ends; Shift turns it by 15 degrees, Ctrl does not snap</source>
        <translation>沿镜像线拖动，或点击其两端；Shift 使线按 15 度转动，Ctrl 不吸附</translation>
    </message>
    <message>
        <source>Drag moves a point, Ctrl does not snap; double click sets one, Delete removes it; Tab goes on, arrows move it</source>
        <translation>拖动移动节点，Ctrl 不吸附；双击添加节点，Delete 删除；Tab 转到下一个，方向键移动</translation>
    </message>
    <message>
        <source>Click selects, Shift adds; drag moves, Ctrl does not snap; double click edits; Space and drag moves the view</source>
        <translation>点击选择，Shift 添加；拖动移动，Ctrl 不吸附；双击编辑；按住空格拖动可移动视图</translation>
    </message>
</context>
<context>
    <name>WorkDocument</name>
    <message>
        <source>Untitled</source>
        <translation>未命名</translation>
    </message>
    <message>
        <source>is not a document of this program</source>
        <translation>不是本程序的文档</translation>
    </message>
    <message>
        <source>is damaged, and holds no shape that can be saved</source>
        <translation>已损坏，没有可以挽救的图形</translation>
    </message>
    <message>
        <source>Damaged document</source>
        <translation>文档已损坏</translation>
    </message>
    <message>
        <source>no room for a temporary file: %1</source>
        <translation>没有空间存放临时文件：%1</translation>
    </message>
    <message>
        <source>Changes of %1 from %2 were not saved. Open them?</source>
        <translation>%1 在 %2 的更改没有保存。打开这些更改吗?</translation>
    </message>
    <message>
        <source>Recover changes</source>
        <translation>恢复更改</translation>
    </message>
    <message>
        <source>Not saved in between: %1</source>
        <translation>未能自动保存：%1</translation>
    </message>
    <message>
        <source>A drawing from %1 was never saved. Open it?</source>
        <translation>%1 的图形从未保存。打开它吗?</translation>
    </message>
    <message>
        <source>Delete the drawing from %1? It is the only copy.</source>
        <translation>删除 %1 的图形吗?这是唯一的副本。</translation>
    </message>
    <message>
        <source>Not saved in between: no folder can be written</source>
        <translation>未能自动保存：没有可写入的文件夹</translation>
    </message>
    <message numerus="yes">
        <source>%1

%n shapes can be saved, %2 bytes would be left out. Open what can be saved?</source>
        <translation>
            <numerusform>%1

可以挽救 %n 个图形，将舍弃 %2 字节。是否打开可挽救的内容？</numerusform>
        </translation>
    </message>
    <message>
        <source>Layers are not kept: %1 could not be read, and stays as it is</source>
        <translation>图层未保存：无法读取 %1，该文件保持不变</translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation>正在打开 %1</translation>
    </message>
    <message>
        <source>Saving %1…</source>
        <translation>正在保存 %1…</translation>
    </message>
    <message>
        <source>%1 is not saved</source>
        <translation>%1 未保存</translation>
    </message>
    <message>
        <source>%1 is saved</source>
        <translation>%1 已保存</translation>
    </message>
    <message>
        <source>Saving %1</source>
        <translation>正在保存 %1</translation>
    </message>
    <message>
        <source>Saving %1 goes on</source>
        <translation>%1 仍在保存</translation>
    </message>
</context>
<context>
    <name>look::LengthUnit</name>
    <message>
        <source>in</source>
        <translation>英寸</translation>
    </message>
    <message>
        <source>mm</source>
        <translation>毫米</translation>
    </message>
    <message>
        <source>in/min</source>
        <translation>英寸/分</translation>
    </message>
    <message>
        <source>mm/min</source>
        <translation>毫米/分</translation>
    </message>
</context>
</TS>
