package com.lindgrove.test.vg.types;

import static org.junit.jupiter.api.Assertions.*;

import com.lindgrove.jvi.types.VLArrayRef;
import com.lindgrove.util.CategoricalVariable;
import com.lindgrove.vg.types.*;
import com.lindgrove.vlwidgets.inspector.types.ColorArray;
import java.awt.Color;
import java.awt.Point;
import java.awt.Rectangle;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Objects;
import java.util.stream.IntStream;
import java.util.stream.Stream;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.DynamicContainer;
import org.junit.jupiter.api.DynamicTest;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.TestFactory;
import org.junit.jupiter.api.function.Executable;

/** Values that go to the library and come back, each through the converter of its type. */
class BridgeTest {
  private static final String JAVA_ERROR = "VORTIL:class:JavaConversionError ";
  private static final double INF = Double.POSITIVE_INFINITY;
  private static final double NAN = Double.NaN;
  private static final String CLEF = "\ud834\udd1e"; // outside the basic plane
  private static final String[] THOUSANDS =
      IntStream.range(0, 20000).mapToObj(Integer::toString).toArray(String[] ::new);
  private static final String[] MARKER_STYLES = {"color", "none", "flat", "auto"};

  @BeforeAll
  static void load() {
    System.load(System.getProperty("vgdatatypes.library"));
    Utils.cleanupVgdatatypesLib(); // needs no library that is started
    Utils.initializeVgdatatypesLib();
    Utils.initializeVgdatatypesLib();
  }

  /** What is expected of one type, step by step; the library holds the value from step to step. */
  private static final class Type {
    private final String name;
    private final NativeTester tester;
    private final List<DynamicTest> steps = new ArrayList<>();

    Type(String name, String javaName, String nativeName) throws ReflectiveOperationException {
      this.name = name;
      this.tester = NativeTester.of(name);
      step("is named", nativeName, () -> {
        assertEquals(javaName, tester.getJavaTypeName());
        assertEquals(nativeName, tester.getNativeTypeName());
      });
    }

    Type(String name, Class<?> javaClass) throws ReflectiveOperationException {
      this(name, javaClass.getCanonicalName(), name);
    }

    private Type step(String what, Object value, Executable action) {
      String shown = show(value);
      String name = what + " " + shown.substring(0, Math.min(shown.length(), 60));
      steps.add(DynamicTest.dynamicTest(name, action));
      return this;
    }

    /** What is there before any value was set, as it is shown. */
    Type starts(Object value) {
      return step("starts with", value, () -> assertEquals(show(value), show(tester.get())));
    }

    Type cannotBeRead(String error) {
      return step("cannot be read", "", () -> assertRefused(error, tester::get));
    }

    /** Each value comes back as it was. */
    Type takes(Object... values) {
      for (Object value : values)
        turns(value, value);
      return this;
    }

    Type turns(Object value, Object back) {
      return step("takes", value, () -> {
        tester.set(value);
        assertSame(back, tester.get());
      });
    }

    /** Takes a value that cannot be read. */
    Type takesUnreadable(Object value, String error) {
      return step("takes", value, () -> tester.set(value)).cannotBeRead(error);
    }

    /** The value from before stays. */
    Type refuses(Object value, String error) {
      return step("refuses", value, () -> {
        Object before = tester.get();
        assertRefused(error, () -> tester.set(value));
        assertSame(before, tester.get());
      });
    }

    /** An object of a class that no type knows; `verb` is "must be" or "is not". */
    Type wantsInstance(String verb) {
      return refuses(new StringBuilder("wrong"),
          JAVA_ERROR + "Input parameter " + verb + " an instance of " + tester.getJavaTypeName());
    }

    /** What a type with choices does, which is one with its own names in their order. */
    Type offers(int first, String... names) {
      return step("offers", names,
          () -> {
            CategoricalVariable choice = (CategoricalVariable) tester.get();
            assertEquals(first, choice.getValue());
            assertEquals(List.of(names), List.of(choice.getNames()));
            for (int value : choice.getValues()) {
              tester.set(choice.withValue(value));
              assertEquals(choice.withValue(value), tester.get());
              assertEquals(names[value], ((CategoricalVariable) tester.get()).getName());
            }
          })
          .refuses(only("bogus"), "VORTIL:datatypes:InvalidEnumValue ")
          .refuses(null,
              JAVA_ERROR
                  + "NULL is not a valid value for objects of enumerated type vortil.graphics."
                  + "datatype." + name)
          .wantsInstance("is not");
    }

    DynamicContainer asTest() { return DynamicContainer.dynamicContainer(name, steps); }
  }

  @TestFactory
  Stream<DynamicContainer> types() throws ReflectiveOperationException {
    List<Type> types = List.of(
        new Type("Callback", VGCallback.class)
            .starts(null)
            .turns(new VGCallback("other", row("redraw")), new VGCallback("redraw", row("redraw")))
            .refuses(new VGCallback("five", row(5)), "VORTIL:datatypes:callback:CreateCallback ")
            .refuses(new VGCallback("none", null), JAVA_ERROR)
            .wantsInstance("must be")
            .takes((Object) null),
        new Type("ColorOrder", ColorArray.class)
            .starts(colors())
            .takes(colors(new Color(0.3f, 0.5f, 0), Color.BLUE))
            .refuses(colors(), JAVA_ERROR + "ColorOrder must have at least one element")
            .refuses(null, JAVA_ERROR + "NULL is not a valid value for ColorOrder")
            .wantsInstance("must be"),
        new Type("Curvature", VLArrayRef.class)
            .starts(new double[0])
            .takes(row(0.5), row(0, 1))
            .refuses(row(2, 2), "VORTIL:vg:shaped_arrays:CurvatureRange ")
            .refuses(null, JAVA_ERROR)
            .wantsInstance("is not"),
        new Type("DataBounds", VGPoint.class)
            .cannotBeRead("VORTIL:datatypes:Point2dDataType:Array")
            .takes(new VGPoint(1, 1), new VGPoint(-1, 2))
            .takesUnreadable(new VGPoint(-INF, 2), "VORTIL:datatypes:Point2dDataType:ArrayData ")
            .takes(new VGPoint(0, 2))
            .refuses(new VGPoint(2, 1), "VORTIL:vg:shaped_arrays:DataBoundsPredicate ")
            .wantsInstance("must be")
            .takesUnreadable(null, "VORTIL:datatypes:Point2dDataType:Array"),
        new Type("FontName", VGFontName.class)
            .starts(new VGFontName("FixedWidth"))
            .takes(new VGFontName("Serif"), new VGFontName("na\u00efve " + CLEF))
            .refuses(null, JAVA_ERROR + "Invalid font: null")
            .wantsInstance("must be"),
        new Type("HandleOrEmpty", "com.lindgrove.jvi.bean.UDDObject", "HandleOrEmpty")
            .starts(null)
            .takes((Object) null)
            .refuses("no handle", JAVA_ERROR),
        new Type("ImageXYData", VLArrayRef.class)
            .starts(new double[0])
            .takes(row(1, 64))
            .refuses(row("yellow"), "VORTIL:vg:shaped_arrays:ImageXYDataType ")
            .refuses(row(NAN), "VORTIL:vg:shaped_arrays:NaN ")
            .refuses(null, JAVA_ERROR)
            .wantsInstance("is not"),
        new Type("LimitsWithInfs", VGPoint.class)
            .cannotBeRead("Unexpected exception in file src/JavaConverterUtils line ")
            .takes(new VGPoint(0, INF), new VGPoint(-INF, INF))
            .refuses(new VGPoint(1, 1), "VORTIL:vg:shaped_arrays:LimitsWithInfsPredicate ")
            .wantsInstance("must be")
            .takesUnreadable(null, "Unexpected exception in file src/JavaConverterUtils line "),
        new Type("LineStyle", CategoricalVariable.class).offers(0, "-", "--", ":", "-.", "none"),
        new Type("MarkerColor", VGStyledColor.class)
            .starts(VGStyledColor.newInstance(0, 0, 0, 1, MARKER_STYLES))
            .takes(VGStyledColor.newInstance(1, 0.5, 0, 0.25, MARKER_STYLES),
                VGStyledColor.newInstance("flat", MARKER_STYLES))
            .refuses(style("bogus"), JAVA_ERROR + "Invalid style for MarkerColor: bogus")
            .refuses(VGStyledColor.newInstance(2, 0, 0, 1, MARKER_STYLES),
                "VORTIL:vg:ColorBase:BadColorValue ")
            .refuses(null, notNull("marker color"))
            .wantsInstance("must be"),
        new Type("MarkerStyle", CategoricalVariable.class)
            .offers(13, "+", "o", "*", ".", "x", "square", "diamond", "v", "^", ">", "<",
                "pentagram", "hexagram", "none"),
        new Type("MeshAlpha", VGAlpha.class)
            .starts(new VGAlpha(1.0, 0))
            .takes(new VGAlpha(0.5, 0), new VGAlpha(2, 0))
            .refuses(new VGAlpha(1.5, 0), "VORTIL:vg:dt_conv:Matrix_to_Real:ValueOutsideRange ")
            .refuses(new VGAlpha(7, 0), JAVA_ERROR + "Invalid style for MeshAlpha: 7")
            .refuses(null, JAVA_ERROR)
            .wantsInstance("must be"),
        new Type("MeshColor", VGMeshColor.class)
            .starts(new VGMeshColor(0, 0, 0, 1, 0))
            .takes(new VGMeshColor(1, 0.5, 0, 0.25, 0), new VGMeshColor(3, 0))
            .refuses(new VGMeshColor(0, 0, NAN, 1, 0), "VORTIL:vg:ColorBase:BadColorValue ")
            .refuses(new VGMeshColor(4, 0), JAVA_ERROR + "Invalid style for MeshColor: 4")
            .refuses(null, notNull("mesh color"))
            .wantsInstance("must be"),
        new Type("NLineStyles", VGLineStyles.class)
            .starts(lineStyles(new String[] {"-"}, ""))
            .takes(lineStyles(new String[] {"-", "--", ""}, "", "o", "square"))
            .refuses(lineStyles(new String[] {"-", "up"}, "", ""),
                "VORTIL:vgdatatypes:InvalidMarkerLineStyle ")
            .refuses(
                lineStyles(new String[] {"-\0x"}, ""), "VORTIL:vgdatatypes:InvalidMarkerLineStyle ")
            .refuses(lineStyles(new String[0]), "VORTIL:vgdatatypes:NotEnoughStyles ")
            .refuses(null, notNull("NLineStyles"))
            .wantsInstance("must be"),
        new Type("NStrings", String[].class)
            .starts(texts())
            .takes(texts("one", "", "na\u00efve " + CLEF), texts(THOUSANDS))
            .turns(null, texts())
            .wantsInstance("must be"),
        new Type("NumericOrString", String[].class)
            .takes(texts("one", "two"), texts())
            .turns(null, texts())
            .wantsInstance("must be"),
        new Type("OnOffBoolean", "java.lang.Boolean", "char")
            .starts(false)
            .takes(true, false)
            .refuses(null, notNull("OnOffBoolean") + " in file src/OnOffBooleanDataType line ")
            .wantsInstance("must be"),
        new Type("Point2", Point.class)
            .starts(new Point())
            .takes(new Point(Integer.MIN_VALUE, Integer.MAX_VALUE))
            .refuses(null, notNull("Point2"))
            .wantsInstance("must be"),
        new Type("Point2d", VGPoint.class)
            .starts(new VGPoint(0, 0))
            .takes(new VGPoint(0.5, -1), new VGPoint(INF, NAN))
            .refuses(null, notNull("Point2d"))
            .wantsInstance("must be"),
        new Type("Point3", VGPoint3.class)
            .starts(new VGPoint3(0, 0, 0))
            .takes(new VGPoint3(1, 2.5, -3))
            .refuses(null, JAVA_ERROR)
            .wantsInstance("must be"),
        new Type("Position", VGRectangle.class)
            .starts(new VGRectangle(0, 0, 0, 0))
            .takes(new VGRectangle(-1, 2, 3, 4))
            .refuses(new VGRectangle(0, 0, -1, 1),
                "VORTIL:vg:PositionDataType:InvalidPositionException ")
            .refuses(null, notNull("Position"))
            .wantsInstance("must be"),
        new Type("Positive", VGDouble.class)
            .starts(new VGDouble(1))
            .takes(new VGDouble(Double.MIN_VALUE))
            .refuses(new VGDouble(0), "VORTIL:datatypes:valueOutsideValidRange ")
            .refuses(null, JAVA_ERROR + "Invalid value for Positive type: NULL")
            .wantsInstance("must be"),
        new Type("RGBAColor", VGColor.class)
            .starts(new VGColor(0, 0, 0, 1))
            .takes(new VGColor(1, 0.5, 0, 0.25), null)
            .refuses(new VGColor(0, 0, 0, 2), "VORTIL:vg:ColorBase:BadColorValue ")
            .wantsInstance("must be"),
        new Type("Rectangle2", Rectangle.class)
            .starts(new Rectangle())
            .turns(new Rectangle(1, 2, 3, 4), new Rectangle(1, 2, 4, 6))
            .refuses(
                new Rectangle(0, 0, -1, 1), "VORTIL:InsetDataType:RectangleCrossedPointsException ")
            .refuses(null, notNull("Rectangle2"))
            .wantsInstance("must be"),
        new Type("TextPosition", VGPoint3.class)
            .cannotBeRead(JAVA_ERROR + "Native array size cannot be 0")
            .takesUnreadable(new VGPoint3(1, NAN, 3),
                JAVA_ERROR + "Array element for TextPosition may not be NaN or Inf")
            .takes(new VGPoint3(1, 2, 3))
            .refuses(null, notNull("text position") + " in file objects/TextDataTypesImpl line ")
            .wantsInstance("must be"),
        new Type("Tick", double[].class)
            .starts(new double[0])
            .takes(new double[] {-INF, 0.5, 1}, new double[0])
            .refuses(new double[] {1, 1}, JAVA_ERROR + "Values must monotonically increase")
            .turns(null, new double[0])
            .wantsInstance("must be"),
        new Type("TickDir", CategoricalVariable.class).offers(0, "in", "out", "both"),
        new Type("TickLength", double[].class)
            .cannotBeRead(JAVA_ERROR + "Native array size is not equal to 2")
            .takes((Object) new double[] {0.5, -1})
            .refuses(new double[3], JAVA_ERROR + "Array size is not equal to 2: 3 in file ")
            .refuses(new double[] {NAN, 1}, JAVA_ERROR + "Invalid value for TickLength")
            .refuses(null, JAVA_ERROR + "Empty array is not a valid value")
            .wantsInstance("must be"),
        new Type("UTF16String", String.class)
            .starts("")
            .takes("na\u00efve " + CLEF, "a\0b", "half \ud834 of a pair", "\udd1e")
            .turns(null, "")
            .wantsInstance("must be"));
    assertEquals(29, types.size());
    return types.stream().map(Type::asTest);
  }

  @Test
  void textsAreConvertedWithoutBeingSet() throws ReflectiveOperationException {
    NativeTester curvature = NativeTester.of("Curvature");
    NativeTester data = NativeTester.of("ImageXYData");
    assertEquals(row(0.5, 1), curvature.convertToJavaFromString("[0.5 1]"));
    assertEquals(row(1, 2, 3), data.convertToJavaFromString("[1 2 3]"));
    assertRefused("VORTIL:vg:shaped_arrays:CurvatureSize ",
        () -> curvature.convertToJavaFromString("[1 2 3]"));
    assertNull(curvature.convertToJavaFromString(null));
  }

  @Test
  void textOfAUserIsNoFormat() throws ReflectiveOperationException {
    NativeTester style = NativeTester.of("LineStyle");
    for (String text : List.of("%s%n", "{0} '{1}'", "na\u00efve " + CLEF)) {
      Exception error =
          assertThrowsExactly(IllegalArgumentException.class, () -> style.set(only(text)));
      assertTrue(error.getMessage().contains("\"" + text + "\""), error.getMessage());
    }
  }

  @Test
  void referencesShowAndCompareTheirArrays() {
    assertEquals("[1 2.5 -3]", row(1, 2.5, -3).toString());
    assertEquals("'it''s'", row("it's").toString());
    assertEquals(row(1, 2), row(1, 2));
    assertEquals(row(1, 2).hashCode(), row(1, 2).hashCode());
    assertNotEquals(row(1, 2), row(1, 3));
    assertNotEquals(row("a"), row('a'));
    assertThrowsExactly(NullPointerException.class, () -> VLArrayRef.of((String) null));
    assertThrowsExactly(NullPointerException.class, () -> VLArrayRef.of((double[]) null));
  }

  /** The library reads the arrays on this thread, and Java gives them up on another one. */
  @Test
  void thousandsOfReferencesComeAndGo() throws ReflectiveOperationException {
    NativeTester curvature = NativeTester.of("Curvature");
    for (int i = 0; i < 20000; ++i) {
      assertEquals(row(0.5), curvature.convertToJavaFromString("[0.5]"));
      if (i % 5000 == 0) System.gc();
    }
  }

  private static VLArrayRef row(double... numbers) { return VLArrayRef.of(numbers); }

  private static VLArrayRef row(String text) { return VLArrayRef.of(text); }

  private static ColorArray colors(Color... colors) { return ColorArray.newInstance(colors); }

  private static VGStyledColor style(String name) {
    return VGStyledColor.newInstance(name, MARKER_STYLES);
  }

  private static VGLineStyles lineStyles(String[] lines, String... markers) {
    return VGLineStyles.newInstance(lines, markers);
  }

  /** As one value, and not as the values of a call. */
  private static Object texts(String... texts) { return texts; }

  private static CategoricalVariable only(String label) {
    return CategoricalVariable.newInstance(
        0, new int[] {0}, new String[] {label}, new String[] {label});
  }

  /** Two blanks end the text where a place in the sources follows. */
  private static String notNull(String what) {
    return JAVA_ERROR + "Input parameter for " + what + " must not be NULL ";
  }

  /** The error of a bad value starts with an identifier; any other exception is unexpected. */
  private static void assertRefused(String error, Executable action) {
    Class<? extends Exception> kind =
        error.startsWith("VORTIL:") ? IllegalArgumentException.class : RuntimeException.class;
    String found = assertThrowsExactly(kind, action).getMessage();
    assertTrue(found.startsWith(error), () -> found + " where expected: " + error);
  }

  private static void assertSame(Object expected, Object found) {
    assertTrue(Objects.deepEquals(expected, found), () -> show(found) + " for " + show(expected));
  }

  private static String show(Object value) {
    String text = Arrays.deepToString(new Object[] {value});
    return text.substring(1, text.length() - 1);
  }
}
