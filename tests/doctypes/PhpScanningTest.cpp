#include "doctypes/SourceTree.h"

#include <gtest/gtest.h>

namespace paperkite::test {

TEST(ScanningPhp, NamespacesHoldClassesAndEnumerationsTheirCases) {
    SourceTree tree;
    tree.Write("User.php", R"~(<?php
namespace App\Models;

use Foo\Bar as Baz;

/**
 * A user.
 */
#[Entity]
abstract class User extends Base implements Named, Counted
{
    use Loggable;

    const LIMIT = 3;
    private const SECRET = 2;

    /** Its name. */
    public $name;
    protected ?string $mail = null;
    private static int $count = 1;

    // Makes one.
    public function __construct(private int $x, $y = [1, 2])
    {
        $local = 1;
        $this->z = 2;
    }

    protected static function find(array $where, ?int &$limit = null, string ...$rest): ?self
    {
        return null;
    }

    abstract public function check();
    final function plain() {}
}

interface Named
{
    public function name(int $a): string;
}

trait Loggable
{
    protected $log;
    public function log() {}
}

# Free.
function helper(int $a, $b = 'x') {}

define('FIRST', 1);
const SECOND = 2;

enum Suit: string
{
    case Hearts = 'H';
    case Spades = 'S';

    public function label(): string
    {
        return '';
    }
}
)~");
    CommentExtractor comments(tree.Folder());
    EXPECT_EQ(Dump(tree.Scan(), {.Places = true}, &comments), R"~(
+Namespace App
  +Namespace Models @User.php:2
    +Class User < Base,Named,Counted @User.php:10-36 "A user."
      +Constant LIMIT @User.php:14
      -Constant SECRET @User.php:15
      +Field name @User.php:18 "Its name."
      #Field mail : ?string @User.php:19
      -Field count : int @User.php:20
      +Constructor __construct (private int $x, $y = [1, 2]) @User.php:23-27 "Makes one."
      #Method find (array $where, int& $limit = null, string...$rest) : ?self @User.php:29-32
      +Method check () @User.php:34
      +Method plain () @User.php:35
    +Interface Named @User.php:38-41
      +Method name (int $a) : string @User.php:40
    +Trait Loggable @User.php:43-47
      #Field log[Field] @User.php:45
      +Method log () @User.php:46
    +Function helper (int $a, $b = 'x') @User.php:50 "Free."
    +Constant FIRST @User.php:52
    +Constant SECOND @User.php:53
    +Enumeration Suit @User.php:55-64
      +Enumerator Hearts @User.php:57
      +Enumerator Spades @User.php:58
      +Method label () : string @User.php:60-63
)~");
}

} // namespace paperkite::test
