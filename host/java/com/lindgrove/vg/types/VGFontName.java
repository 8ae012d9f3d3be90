package com.lindgrove.vg.types;

import java.awt.AWTError;
import java.awt.Font;
import java.awt.GraphicsEnvironment;
import java.util.Objects;
import java.util.stream.Stream;

/** The name of a font family, which need not be there. */
public record VGFontName(String fontName) {
  public VGFontName {
    Objects.requireNonNull(fontName);
  }

  public static VGFontName newInstance(String fontName) {
    return new VGFontName(fontName);
  }

  public String getFontName() {
    return fontName;
  }

  /**
   * Whether Java knows a font family of that name, in any case: one of the machine's, or one of the
   * five that Java always has, such as "Monospaced".
   */
  public static boolean isFontNameValidIgnoreCase(String fontName) {
    Stream<String> logical =
        Stream.of(Font.DIALOG, Font.DIALOG_INPUT, Font.MONOSPACED, Font.SANS_SERIF, Font.SERIF);
    return Stream.concat(logical, Stream.of(Families.OF_MACHINE))
        .anyMatch(family -> family.equalsIgnoreCase(fontName));
  }

  /** Listing the families is slow, so it is done once and only when someone asks. */
  private static final class Families {
    static final String[] OF_MACHINE = list();

    /** None where the machine has no fonts, or not the libraries that Java reads them with. */
    private static String[] list() {
      try {
        return GraphicsEnvironment.getLocalGraphicsEnvironment().getAvailableFontFamilyNames();
      } catch (RuntimeException | LinkageError | InternalError | AWTError e) {
        return new String[0];
      }
    }
  }
}
