package ledger;

import java.util.ArrayList;
import java.util.List;

/** The entries of an account, and what they come to. */
public class Ledger {
    private final List<Entry> entries = new ArrayList<>();

    /** One amount, in cents. */
    public record Entry(String text, long cents) {
        public Entry {
            if (text.isBlank()) throw new IllegalArgumentException("An entry needs a text.");
        }
    }

    /**
     * Adds an entry.
     * Author: Amara Nwosu
     * Keywords: account, entry
     */
    public void add(String text, long cents) {
        entries.add(new Entry(text, cents));
    }

    /** The sum of all entries, in cents. */
    public long balance() {
        return entries.stream().mapToLong(Entry::cents).sum();
    }
}
